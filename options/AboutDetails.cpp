#include "options/AboutDetails.h"

#include "app/ProgramVersion.h"
#include "files/NumberText.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

namespace quorvane {
namespace {

std::string WholeNumber(double value)
{
    return PatternText(value, {1, 0, 0});
}

std::string ProcessorName(const MachineFacts& machine, const Texts& texts)
{
    if (machine.CpuAwaited)
        return texts[kProcessorAwaitedText];
    return machine.CpuName.empty() ? texts[kUnknownText] : machine.CpuName;
}

std::string ClockText(const MachineFacts& machine, const Texts& texts)
{
    const std::string now = WholeNumber(machine.CpuCurrentClockSpeed);
    const std::string atMost = WholeNumber(machine.CpuMaxClockSpeed);
    if (machine.CpuCurrentClockSpeed > 0 && machine.CpuMaxClockSpeed > 0)
        return FilledIn(FilledIn(texts[kClockNowAtMostText], now), atMost);
    if (machine.CpuCurrentClockSpeed > 0)
        return FilledIn(texts[kClockNowText], now);
    return machine.CpuMaxClockSpeed > 0 ? FilledIn(texts[kClockAtMostText], atMost) : std::string();
}

} // namespace

std::vector<AboutRow> AboutRows(const ApplicationState& state, const Texts& texts,
                                const AboutSurroundings& surroundings)
{
    std::vector<AboutRow> rows;
    const auto add = [&](int caption, const std::string& value) {
        if (!value.empty())
            rows.push_back({texts[caption], value});
    };
    add(kVersionText, texts[kProgramNameText] + " " + VersionNumber(kProgramVersion));
    for (const auto& [name, version, licence] : surroundings.libraries)
        add(kLibraryText,
            std::string(name).append(" ").append(version).append(" (").append(licence).append(")"));
    add(kProcessorText, ProcessorName(state, texts));
    add(kProcessorTypeText, state.CpuDescription);
    add(kProcessorMakerText, state.CpuManufacturer);
    add(kProcessorClockText, ClockText(state, texts));
    if (state.CpuL2CacheSize > 0)
        add(kL2CacheText, FilledIn(texts[kKilobytesText], WholeNumber(state.CpuL2CacheSize)));
    add(kSystemText, surroundings.system);
    add(kSystemClassText, std::to_string(state.OsKind));
    add(kSystemLanguageNameText, state.SystemLanguageName);
    rows.push_back({texts[kProgramFilesText], state.AppPath});
    return rows;
}

std::string MailText(const std::vector<AboutRow>& rows)
{
    std::string text;
    for (const auto& [caption, value] : rows)
        text.append(caption).append(" ").append(value).append("\n");
    return text;
}

} // namespace quorvane
