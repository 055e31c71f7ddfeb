#pragma once

#include "app/InstanceLock.h"
#include "app/KeepAwake.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "app/SystemInfo.h"
#include "app/WindowOrder.h"
#include "files/CodePage.h"
#include "files/FileStore.h"
#include "files/Folders.h"
#include "files/JournalStore.h"
#include "files/PrivateProfile.h"
#include "serial/DeviceWatch.h"
#include "serial/PortDescriptions.h"
#include "serial/PortNames.h"
#include "serial/SerialControl.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// The system's side of core's interfaces. None of them is null but the last two.
struct Platform {
    std::unique_ptr<SerialControl> serial;
    std::unique_ptr<PortNames> portNames;
    std::unique_ptr<PortProbe> portProbe;
    std::unique_ptr<PortDescriptions> portDescriptions;
    std::unique_ptr<DeviceWatch> devices;
    std::unique_ptr<FileStore> files;
    std::unique_ptr<Folders> folders;
    std::unique_ptr<JournalStore> journals;
    std::unique_ptr<CodePage> codePage;
    std::unique_ptr<PrivateProfile> profile;
    std::unique_ptr<LocaleItems> locale;
    std::unique_ptr<LocalClock> clock;
    std::unique_ptr<SystemInfo> systemInfo;
    std::unique_ptr<InstanceLock> instanceLock; ///< not taken before it is asked
    std::unique_ptr<WindowOrder> windowOrder;   ///< null where only the toolkit knows its windows
    std::unique_ptr<KeepAwake> keepAwake;       ///< null where only the toolkit can ask for it
};

/// Also sees to it that the standard streams are open, or the port could get the number of one, and that a
/// console shows UTF-8.
[[nodiscard]] Platform MakePlatform();

/// What stands behind the program's name on its command line, UTF-8. Takes main's arguments.
[[nodiscard]] std::vector<std::string> ProgramArguments(int argc, char** argv);

/// Folder of the running program's file, UTF-8, without a trailing separator; "." when the system does not
/// tell.
[[nodiscard]] std::string ProgramFolder();

/// The user's own folder for this program's data, UTF-8, whether it is there or not; empty when the system
/// knows none.
[[nodiscard]] std::string UserDataFolder();

/// The system's folder for files that nobody keeps, UTF-8; empty when it knows none.
[[nodiscard]] std::string TemporaryFolder();

/// An environment variable, UTF-8. @return nothing when it is not set; an empty text when it is set to
/// nothing
[[nodiscard]] std::optional<std::string> EnvironmentText(const std::string& name);

/// A program with windows that was started from a console can write to it from here on; a standard stream
/// that leads somewhere already stays as it is.
void WriteToStartersConsole();

[[nodiscard]] bool StandardErrorIsTerminal();

enum class StandardStream { Output, Error };

/// Writes as much of `text` as the stream takes without a wait: a pager or a stopped terminal must not hold
/// the program. What was not written has to be offered again first.
/// @return bytes written; all of them when nobody can read any more
[[nodiscard]] std::size_t WriteWithoutWaiting(StandardStream stream, std::string_view text);

} // namespace quorvane
