#pragma once

#include "app/ApplicationState.h"
#include "app/InstanceLock.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "app/Prompts.h"
#include "app/SystemInfo.h"
#include "app/Texts.h"
#include "files/ProgramFiles.h"

#include <functional>

namespace quorvane {

/// What start-up works with.
struct StartupParts {
    InstanceLock& instanceLock;
    SystemInfo& systemInfo;
    const LocaleItems& locale;
    const LocalClock& clock;
    const FileStore& files;
    Prompts& prompts;
    const Texts& texts;
    std::function<ProgramFiles()> findFiles; ///< may make the folder; asked once
    std::function<void()> selectLanguage;    ///< lets the operator choose it; empty when that is not wanted
    std::function<void()> showMainWindow;    ///< loads the settings and sets the language offset
};

enum class StartupResult {
    Running,        ///< the main window is there
    AlreadyRunning, ///< the operator was told so; the program is to end at once
};

/// Starts the program: refuses a second instance, before anything is read or written; fills the state with
/// the place of the files, the facts about the machine, the system's language and date format and the
/// language choice; lets it be chosen anew where that is wanted; shows the main window. The processors are
/// only asked for, and recorded when the answer is there at once.
[[nodiscard]] StartupResult Main(ApplicationState& state, const StartupParts& parts);

/// Records the processors when the answer that is awaited has come: to be called now and then until
/// `CpuAwaited` is false. @return whether it has come now
bool RecordProcessors(MachineFacts& machine, SystemInfo& system);

} // namespace quorvane
