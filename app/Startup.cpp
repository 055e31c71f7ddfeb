#include "app/Startup.h"

#include "app/OsKind.h"
#include "instrument/LocaleAnalysis.h"
#include "options/LanguageFile.h"
#include "resources/SystemTexts.h"

#include <algorithm>

namespace quorvane {
namespace {

void RecordProcessors(MachineFacts& machine, const SystemInfo& system)
{
    for (const ProcessorRecord& processor : system.Processors()) { // meant: the last one stays
        machine.CpuDescription = processor.description;
        machine.CpuName = processor.name;
        machine.CpuManufacturer = processor.manufacturer;
        machine.CpuCurrentClockSpeed = processor.currentClockSpeed;
        machine.CpuMaxClockSpeed = processor.maxClockSpeed;
        machine.CpuL2CacheSize = std::max(processor.l2CacheSize.value_or(0), 0.0);
    }
}

} // namespace

StartupResult Main(ApplicationState& state, const StartupParts& parts)
{
    if (parts.instanceLock.PreviousInstanceRunning()) {
        parts.prompts.Show({.text = parts.texts[kAlreadyRunningText], .icon = Icon::Exclamation});
        return StartupResult::AlreadyRunning;
    }
    state.AppPath = parts.findFiles().folder;
    state.OsKind = ClassifySystem(parts.systemInfo);
    RecordProcessors(state, parts.systemInfo);
    state.SystemLanguageName = parts.locale.SystemLanguageName();
    AnalyseLocale(state, parts.locale, parts.clock.Now());
    LoadLanguageMode(parts.files, state.AppPath, state.LanguageMode);
    if (parts.selectLanguage)
        parts.selectLanguage();
    parts.showMainWindow();
    return StartupResult::Running;
}

} // namespace quorvane
