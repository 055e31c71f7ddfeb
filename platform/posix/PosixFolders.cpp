#include "platform/posix/PosixFolders.h"

#include "platform/posix/FileDescriptor.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace quorvane {

bool PosixFolders::CanWrite(const std::string& folder) const
{
    // Permission bits know neither root nor access lists nor read-only mounts.
    std::string path = folder + "/.quorvane-XXXXXX";
    const FileDescriptor file(::mkostemp(path.data(), O_CLOEXEC));
    return file.IsOpen() && ::unlink(path.c_str()) == 0;
}

std::optional<std::uintmax_t> PosixFolders::FreeSpace(const std::string& folder) const
{
    std::error_code error;
    const std::filesystem::space_info space = std::filesystem::space(folder, error);
    return error ? std::nullopt : std::optional(space.available);
}

bool PosixFolders::Make(const std::string& folder)
{
    constexpr mode_t kForTheUserAlone = 0700;
    if (::mkdir(folder.c_str(), kForTheUserAlone) == 0)
        return true;
    const bool aboveIsMissing = errno == ENOENT;
    const std::filesystem::path path = folder;
    if (aboveIsMissing && path.has_parent_path() && Make(path.parent_path().string()))
        ::mkdir(folder.c_str(), kForTheUserAlone);
    std::error_code ignored;
    return std::filesystem::is_directory(path, ignored); // it was there, or another program has just made it
}

} // namespace quorvane
