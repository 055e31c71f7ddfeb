#include "app/Startup.h"

#include "app/OsKind.h"
#include "instrument/LocaleAnalysis.h"
#include "options/LanguageFile.h"
#include "resources/SystemTexts.h"

#include <algorithm>

namespace quorvane {

bool RecordProcessors(MachineFacts& machine, SystemInfo& system)
{
    const auto processors = system.TakeProcessors();
    if (!processors)
        return false;
    machine.CpuAwaited = false;
    for (const ProcessorRecord& processor : *processors) { // meant: the last one stays
        machine.CpuDescription = processor.description;
        machine.CpuName = processor.name;
        machine.CpuManufacturer = processor.manufacturer;
        machine.CpuCurrentClockSpeed = processor.currentClockSpeed;
        machine.CpuMaxClockSpeed = processor.maxClockSpeed;
        machine.CpuL2CacheSize = std::max(processor.l2CacheSize.value_or(0), 0.0);
    }
    return true;
}

StartupResult Main(ApplicationState& state, const StartupParts& parts)
{
    if (parts.instanceLock.PreviousInstanceRunning()) {
        parts.prompts.Show({.text = parts.texts[kAlreadyRunningText], .icon = Icon::Exclamation});
        return StartupResult::AlreadyRunning;
    }
    state.AppPath = parts.findFiles().folder;
    state.OsKind = ClassifySystem(parts.systemInfo);
    parts.systemInfo.AskForProcessors();
    state.CpuAwaited = true;
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
