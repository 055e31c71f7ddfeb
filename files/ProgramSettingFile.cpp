#include "files/ProgramSettingFile.h"

#include "files/NumberText.h"

#include <algorithm>
#include <string_view>
#include <variant>

namespace quorvane {
namespace {

using Program = InstrumentProgram;

constexpr std::string_view kVersionName = "Program Ver."; // of its section and of its key
constexpr std::string_view kSection = "Program Setting";

struct Entry {
    std::string_view key;
    std::variant<double Program::*, std::string Program::*> field;
};

/// The keys in the order in which they are written. They stand one unit behind what they hold ("..._Minute"
/// holds hours), as in the settings file, and the minutes have no key at all; that is the format.
constexpr Entry kEntries[] = {
    {"Measure Number", &Program::ProgramMeasureCount},
    {"Measure Time_Hour", &Program::ProgramMeasureTimeHour},
    {"Measure Time_Minute", &Program::ProgramMeasureHours},
    {"Measure StartDate", &Program::ProgramStartDate},
    {"Measure StartTime", &Program::ProgramStartTime},
    {"Measure TotalTime_Hour", &Program::ProgramTotalTimeHour},
    {"Measure TotalTime_Minute", &Program::ProgramTotalHours},
};

struct EncodedEntry {
    const Program& program;

    std::string operator()(double Program::*field) const { return BlankedText(program.*field); }
    std::string operator()(std::string Program::*field) const { return program.*field; }
};

struct Store {
    Program& program;
    std::string value;

    void operator()(double Program::*field) const { program.*field = LeadingNumber(value); }
    void operator()(std::string Program::*field) const { program.*field = value; }
};

} // namespace

std::optional<FileFault> ProgramSettingFile::SaveProgramSetting(const std::string& path)
{
    if (auto fault = profile_.WriteIniValue(kVersionName, kVersionName, FileVersionText(version_), path))
        return fault;
    for (const Entry& entry : kEntries) {
        const std::string value = std::visit(EncodedEntry{program_}, entry.field);
        if (auto fault = profile_.WriteIniValue(kSection, entry.key, value, path))
            return fault;
    }
    return std::nullopt;
}

bool ProgramSettingFile::HoldsProgram(const std::string& path) const
{
    return std::ranges::any_of(kEntries, [&](const Entry& entry) {
        return !profile_.ReadIniValue(kSection, entry.key, path).empty();
    });
}

void ProgramSettingFile::OpenProgramSetting(const std::string& path)
{
    openedVersion_ = profile_.ReadIniValue(kVersionName, kVersionName, path);
    for (const Entry& entry : kEntries)
        std::visit(Store{program_, profile_.ReadIniValue(kSection, entry.key, path)}, entry.field);
}

} // namespace quorvane
