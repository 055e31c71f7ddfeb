#pragma once

#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "files/CodePage.h"
#include "files/FileStore.h"
#include "serial/PortNames.h"
#include "serial/SerialControl.h"

#include <memory>
#include <optional>
#include <string>

namespace quorvane {

/// The system's side of every interface that a program without windows needs. None of them is null.
struct Platform {
    std::unique_ptr<SerialControl> serial;
    std::unique_ptr<PortNames> portNames;
    std::unique_ptr<PortProbe> portProbe;
    std::unique_ptr<FileStore> files;
    std::unique_ptr<CodePage> codePage;
    std::unique_ptr<LocaleItems> locale;
    std::unique_ptr<LocalClock> clock;
};

[[nodiscard]] Platform MakePlatform();

/// Folder of the running program's file, UTF-8, without a trailing separator; "." when the system does not
/// tell.
[[nodiscard]] std::string ProgramFolder();

/// An environment variable, UTF-8. @return nothing when it is not set; an empty text when it is set to
/// nothing
[[nodiscard]] std::optional<std::string> EnvironmentText(const std::string& name);

[[nodiscard]] bool StandardErrorIsTerminal();

} // namespace quorvane
