#include "platform/Platform.h"
#include "platform/posix/PosixCodePage.h"
#include "platform/posix/PosixFileStore.h"
#include "platform/posix/PosixLocalClock.h"
#include "platform/posix/PosixLocaleItems.h"
#include "platform/posix/PosixPortNames.h"
#include "platform/posix/PosixPortProbe.h"
#include "platform/posix/PosixSerialControl.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace quorvane {

Platform MakePlatform()
{
    return {
        .serial = std::make_unique<PosixSerialControl>(),
        .portNames = std::make_unique<PosixPortNames>(),
        .portProbe = std::make_unique<PosixPortProbe>(),
        .files = std::make_unique<PosixFileStore>(),
        .codePage = std::make_unique<PosixCodePage>(),
        .locale = std::make_unique<PosixLocaleItems>(),
        .clock = std::make_unique<PosixLocalClock>(),
    };
}

std::string ProgramFolder()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? "." : program.parent_path().string();
}

std::optional<std::string> EnvironmentText(const std::string& name)
{
    if (const char* text = std::getenv(name.c_str()))
        return text;
    return std::nullopt;
}

bool StandardErrorIsTerminal()
{
    return ::isatty(STDERR_FILENO) == 1;
}

} // namespace quorvane
