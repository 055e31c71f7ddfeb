#include "files/AppFiles.h"
#include "files/FileProfile.h"
#include "platform/JournalWriter.h"
#include "platform/Platform.h"
#include "platform/posix/FileDescriptor.h"
#include "platform/posix/PosixCodePage.h"
#include "platform/posix/PosixDeviceWatch.h"
#include "platform/posix/PosixFileStore.h"
#include "platform/posix/PosixFolders.h"
#include "platform/posix/PosixInstanceLock.h"
#include "platform/posix/PosixLocalClock.h"
#include "platform/posix/PosixLocaleItems.h"
#include "platform/posix/PosixPortDescriptions.h"
#include "platform/posix/PosixPortNames.h"
#include "platform/posix/PosixPortProbe.h"
#include "platform/posix/PosixSerialControl.h"
#include "platform/posix/PosixSystemInfo.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <pwd.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quorvane {
namespace {

// A program started with a standard stream closed would get that number for the next file that it opens, and
// then print its rows to the instrument.
void OccupyStandardStreams()
{
    for (int fd = 0; fd <= STDERR_FILENO; ++fd) {
        if (::fcntl(fd, F_GETFD) < 0)
            static_cast<void>(::open("/dev/null", O_RDWR)); // takes the lowest free number: this one
    }
}

// A terminal that says it takes something may take a few bytes only, and holds whoever writes more. The
// stream itself is shared with the shell and must not be told to return at once; so the terminal is opened
// once more.
FileDescriptor OpenTerminalAnew(int stream)
{
    if (::isatty(stream) != 1)
        return {};
    return OpenDescriptor("/proc/self/fd/" + std::to_string(stream),
                          O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

std::string HomeFolder()
{
    if (const auto home = EnvironmentText("HOME"); home && !home->empty())
        return *home;
    const passwd* const user = ::getpwuid(::geteuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
}

} // namespace

Platform MakePlatform()
{
    OccupyStandardStreams();
    auto files = std::make_unique<PosixFileStore>();
    auto codePage = std::make_unique<PosixCodePage>();
    auto profile = std::make_unique<FileProfile>(*files, *codePage);
    return {
        .serial = std::make_unique<PosixSerialControl>(),
        .portNames = std::make_unique<PosixPortNames>(),
        .portProbe = std::make_unique<PosixPortProbe>(),
        .portDescriptions = std::make_unique<PosixPortDescriptions>(),
        .devices = std::make_unique<PosixDeviceWatch>(),
        .files = std::move(files),
        .folders = std::make_unique<PosixFolders>(),
        .journals = std::make_unique<JournalWriter>(SystemJournalFiles()),
        .codePage = std::move(codePage),
        .profile = std::move(profile),
        .locale = std::make_unique<PosixLocaleItems>(),
        .clock = std::make_unique<PosixLocalClock>(),
        .systemInfo = std::make_unique<PosixSystemInfo>(),
        .instanceLock = std::make_unique<PosixInstanceLock>(),
        .windowOrder = nullptr,
        .keepAwake = nullptr,
    };
}

std::vector<std::string> ProgramArguments(int argc, char** argv)
{
    return {argv + std::min(argc, 1), argv + argc};
}

std::string ProgramFolder()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? "." : program.parent_path().string();
}

std::string UserDataFolder()
{
    const std::string dataHome = EnvironmentText("XDG_DATA_HOME").value_or("");
    if (dataHome.starts_with('/')) // a relative one is to be ignored
        return dataHome + "/quorvane";
    const std::string home = HomeFolder();
    return home.starts_with('/') ? home + "/.local/share/quorvane" : "";
}

std::string TemporaryFolder()
{
    std::error_code error;
    return Utf8FromPath(std::filesystem::temp_directory_path(error));
}

std::optional<std::string> EnvironmentText(const std::string& name)
{
    if (const char* text = std::getenv(name.c_str()))
        return text;
    return std::nullopt;
}

std::size_t WriteWithoutWaiting(StandardStream stream, std::string_view text)
{
    static const FileDescriptor terminals[] = {OpenTerminalAnew(STDOUT_FILENO),
                                               OpenTerminalAnew(STDERR_FILENO)};
    const bool output = stream == StandardStream::Output;
    const FileDescriptor& terminal = terminals[output ? 0 : 1];
    const int fd = terminal.IsOpen() ? terminal.Get() : output ? STDOUT_FILENO : STDERR_FILENO;
    pollfd state{fd, POLLOUT, 0};
    if (text.empty() || ::poll(&state, 1, 0) <= 0)
        return 0;
    constexpr std::size_t kTakenAtOnce = 4096; // by a pipe that says it takes something
    const ssize_t count = ::write(fd, text.data(), std::min(text.size(), kTakenAtOnce));
    if (count >= 0)
        return static_cast<std::size_t>(count);
    const bool takesNothingNow = errno == EINTR || errno == EAGAIN;
    return takesNothingNow ? 0 : text.size(); // a reader who has gone away does not matter
}

void WriteToStartersConsole() {} // it always can

bool StandardErrorIsTerminal()
{
    return ::isatty(STDERR_FILENO) == 1;
}

} // namespace quorvane
