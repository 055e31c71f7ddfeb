#include "platform/posix/PosixFileStore.h"

#include "platform/posix/FileDescriptor.h"
#include "platform/posix/FileFault.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quorvane {
namespace {

using Path = std::filesystem::path;
using Fault = std::optional<FileFault>;

FileFault NotAFile(const struct stat& status)
{
    return {FileFaultKind::NotAFile, S_ISDIR(status.st_mode) ? ReasonOf(EISDIR) : "Not a regular file"};
}

/// Opens a regular file. Never waits, as opening a pipe would.
Fault OpenRegular(const std::string& path, int flags, FileDescriptor& file, struct stat& status)
{
    FileDescriptor opened = OpenDescriptor(path, flags | O_NONBLOCK | O_NOCTTY, 0666);
    if (!opened.IsOpen() || ::fstat(opened.Get(), &status) != 0)
        return FaultOf(errno);
    if (!S_ISREG(status.st_mode))
        return NotAFile(status);
    file = std::move(opened);
    return std::nullopt;
}

Fault WriteAll(const FileDescriptor& file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(file.Get(), bytes.data(), bytes.size());
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (count == 0)
            return FaultOf(ENOSPC);
        else if (errno != EINTR)
            return FaultOf(errno);
    }
    return std::nullopt;
}

/// The file that a path leads to through symbolic links, whether it exists or not.
Fault FollowLinks(Path& path)
{
    constexpr int kMostLinks = 40;
    for (int links = 0; links < kMostLinks; ++links) {
        std::error_code error;
        const Path next = std::filesystem::read_symlink(path, error);
        if (error)
            return std::nullopt;
        path = path.parent_path() / next;
    }
    return FaultOf(ELOOP);
}

/// The file that is to be replaced, and where it stands.
struct Target {
    Path path;
    Path folder;
    bool exists = false;
    struct stat status {};
};

Fault FindTarget(const std::string& path, Target& target)
{
    target.path = path;
    if (Fault fault = FollowLinks(target.path))
        return fault;
    if (!target.path.has_filename())
        return FaultOf(path.empty() ? ENOENT : EISDIR);
    target.folder = target.path.has_parent_path() ? target.path.parent_path() : Path(".");
    target.exists = ::stat(target.path.c_str(), &target.status) == 0;
    if (!target.exists && errno != ENOENT)
        return FaultOf(errno);
    if (target.exists && !S_ISREG(target.status.st_mode))
        return NotAFile(target.status);
    if (target.exists && ::faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) != 0)
        return FaultOf(errno); // renaming would get round the file's write protection
    return std::nullopt;
}

/// A new file beside the one that it is to replace; removed unless it was kept.
class TemporaryFile {
public:
    TemporaryFile() = default;
    ~TemporaryFile()
    {
        if (!path_.empty())
            ::unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    Fault Create(const Path& folder, unsigned mode)
    {
        static std::atomic<unsigned> counter{0};
        constexpr int kMostNames = 1000; // left by a crash, under process numbers that come round again
        for (int i = 0; i < kMostNames; ++i) {
            const std::string name =
                ".quorvane-" + std::to_string(::getpid()) + '-' + std::to_string(counter++) + ".tmp";
            const std::string path = (folder / name).string();
            file_ = OpenDescriptor(path, O_WRONLY | O_CREAT | O_EXCL, mode);
            if (file_.IsOpen()) {
                path_ = path;
                return std::nullopt;
            }
            if (errno != EEXIST)
                break;
        }
        return FaultOf(errno);
    }

    /// As the old file; the owner only where the user may give files away.
    Fault TakeOver(const struct stat& old)
    {
        [[maybe_unused]] const int owner = ::fchown(file_.Get(), old.st_uid, old.st_gid);
        struct stat made {};
        if (::fstat(file_.Get(), &made) != 0)
            return FaultOf(errno);
        // A file system without modes gives both the same one and may refuse to set any.
        if (made.st_mode == old.st_mode || ::fchmod(file_.Get(), old.st_mode & 07777) == 0)
            return std::nullopt;
        return FaultOf(errno);
    }

    Fault Write(std::string_view bytes)
    {
        if (Fault fault = WriteAll(file_, bytes))
            return fault;
        if (const int error = Flush(file_))
            return FaultOf(error);
        const int error = file_.Close();
        return error == 0 ? Fault{} : FaultOf(error);
    }

    Fault RenameTo(const Path& target)
    {
        if (::rename(path_.c_str(), target.c_str()) != 0)
            return FaultOf(errno);
        path_.clear();
        return std::nullopt;
    }

private:
    FileDescriptor file_;
    std::string path_;
};

} // namespace

bool PosixFileStore::Exists(const std::string& path) const
{
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

std::optional<std::uintmax_t> PosixFileStore::Size(const std::string& path) const
{
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return static_cast<std::uintmax_t>(status.st_size);
}

Fault PosixFileStore::ReadWhole(const std::string& path, std::string& bytes) const
{
    bytes.clear();
    FileDescriptor file;
    struct stat status {};
    if (Fault fault = OpenRegular(path, O_RDONLY, file, status))
        return fault;
    if (static_cast<std::uintmax_t>(status.st_size) > kLargestFile)
        return FaultOf(EFBIG);
    std::array<char, 65536> block;
    for (;;) {
        const ssize_t count = ::read(file.Get(), block.data(), block.size());
        if (count == 0)
            return std::nullopt;
        if (count > 0) {
            bytes.append(block.data(), static_cast<std::size_t>(count));
            if (bytes.size() > kLargestFile) { // the kernel's own files do not tell their size
                bytes.clear();
                return FaultOf(EFBIG);
            }
        } else if (errno != EINTR) {
            const int error = errno;
            bytes.clear();
            return FaultOf(error);
        }
    }
}

Fault PosixFileStore::Append(const std::string& path, std::string_view bytes)
{
    FileDescriptor file;
    struct stat status {};
    if (Fault fault = OpenRegular(path, O_WRONLY | O_APPEND | O_CREAT, file, status))
        return fault;
    if (Fault fault = WriteAll(file, bytes))
        return fault;
    const int error = file.Close();
    return error == 0 ? Fault{} : FaultOf(error);
}

Fault PosixFileStore::CheckReplace(const std::string& path) const
{
    Target target;
    if (Fault fault = FindTarget(path, target))
        return fault;
    return ::faccessat(AT_FDCWD, target.folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0 ? Fault{}
                                                                                      : FaultOf(errno);
}

Fault PosixFileStore::Replace(const std::string& path, std::string_view bytes)
{
    Target target;
    if (Fault fault = FindTarget(path, target))
        return fault;

    TemporaryFile beside;
    if (Fault fault = beside.Create(target.folder, target.exists ? 0600 : 0666))
        return fault;
    if (target.exists) {
        if (Fault fault = beside.TakeOver(target.status))
            return fault;
    }
    if (Fault fault = beside.Write(bytes))
        return fault;
    if (Fault fault = beside.RenameTo(target.path))
        return fault;
    // The new file is in place whatever this gives; it only makes the renaming itself outlast a power cut.
    Flush(OpenDescriptor(target.folder.string(), O_RDONLY | O_DIRECTORY));
    return std::nullopt;
}

} // namespace quorvane
