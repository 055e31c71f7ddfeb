#include "platform/posix/PosixInstanceLock.h"

#include "platform/Platform.h"
#include "platform/posix/PosixFolders.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace quorvane {
namespace {

enum class LockAnswer { Taken, HeldByAnother, NotPossible };

/// Nobody else may put files into it.
bool IsUsersOwn(const FileDescriptor& folder)
{
    struct stat status {};
    return ::fstat(folder.Get(), &status) == 0 && status.st_uid == ::geteuid() &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

FileDescriptor OpenLockFile(const FileDescriptor& folder)
{
    // Kept from the cleaners of such folders, which spare files with the sticky bit.
    constexpr mode_t kMode = S_IRUSR | S_IWUSR | S_ISVTX;
    FileDescriptor file(::openat(folder.Get(), "quorvane.lock",
                                 O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, kMode));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid())
        return {};
    static_cast<void>(::fchmod(file.Get(), kMode)); // the bit may get lost when the file is made
    return file;
}

LockAnswer Lock(const LockFolder& candidate, FileDescriptor& held)
{
    if (!candidate.path.starts_with('/') || (candidate.mayBeMade && !PosixFolders().Make(candidate.path)))
        return LockAnswer::NotPossible;
    const FileDescriptor folder = OpenDescriptor(candidate.path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    if (!folder.IsOpen() || !IsUsersOwn(folder))
        return LockAnswer::NotPossible;
    FileDescriptor file = OpenLockFile(folder);
    if (!file.IsOpen())
        return LockAnswer::NotPossible;
    if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? LockAnswer::HeldByAnother : LockAnswer::NotPossible;
    held = std::move(file);
    return LockAnswer::Taken;
}

} // namespace

std::vector<LockFolder> LockFolders()
{
    const std::string user = std::to_string(::geteuid());
    std::error_code error;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
    return {
        {EnvironmentText("XDG_RUNTIME_DIR").value_or("")},
        {"/run/user/" + user}, // what the variable usually says, for a session that lacks it
        {UserDataFolder(), true},
        {(temporary / ("quorvane-" + user)).string(), true},
    };
}

bool PosixInstanceLock::PreviousInstanceRunning()
{
    if (file_.IsOpen())
        return false;
    for (const LockFolder& folder : folders_) {
        const LockAnswer answer = Lock(folder, file_);
        if (answer != LockAnswer::NotPossible)
            return answer == LockAnswer::HeldByAnother;
    }
    return false;
}

} // namespace quorvane
