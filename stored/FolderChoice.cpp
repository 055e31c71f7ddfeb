#include "stored/FolderChoice.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr std::size_t kLetterAndColon = 2;

/// Where volumes of the operator's are mounted.
constexpr std::string_view kVolumeFolders[] = {"/media", "/run/media", "/mnt"};

/// What is mounted below these is the system's.
constexpr std::string_view kSystemFolders[] = {"/boot", "/efi", "/snap", "/var", "/run", "/etc", "/usr",
                                               "/proc", "/sys", "/dev",  "/tmp", "/opt", "/nix"};

/// Memory, packed programs and layers of containers, wherever they are mounted.
constexpr std::string_view kSystemKinds[] = {"tmpfs",   "ramfs", "devtmpfs", "squashfs",      "erofs",
                                             "overlay", "aufs",  "autofs",   "fuse.snapfuse", "fuse.portal"};

constexpr std::string_view kNetworkKinds[] = {"nfs", "nfs4", "cifs", "smb3", "fuse.sshfs"};

char Capital(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameLetter(std::string_view folder, std::string_view drive)
{
    return HasDriveLetter(folder) && HasDriveLetter(drive) && Capital(folder[0]) == Capital(drive[0]);
}

/// Whether `folder` is `above` or lies in it. Where drives have no letters, a backslash is part of a name.
bool LiesIn(std::string_view folder, std::string_view above)
{
    return !above.empty() && folder.starts_with(above) &&
           (folder.size() == above.size() || above.back() == '/' || folder[above.size()] == '/');
}

bool LiesInOneOf(std::string_view folder, std::span<const std::string_view> places)
{
    return std::ranges::any_of(places, [folder](std::string_view place) { return LiesIn(folder, place); });
}

bool IsOneOf(std::string_view kind, std::span<const std::string_view> kinds)
{
    return std::ranges::find(kinds, kind) != kinds.end();
}

} // namespace

bool HasDriveLetter(std::string_view path)
{
    return path.size() >= kLetterAndColon && path[1] == ':' && Capital(path[0]) >= 'A' &&
           Capital(path[0]) <= 'Z';
}

std::optional<std::size_t> DriveOf(std::string_view folder, std::span<const Drive> drives)
{
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < drives.size(); ++i) {
        const std::string_view path = drives[i].path;
        if (SameLetter(folder, path))
            return i;
        if (!HasDriveLetter(path) && LiesIn(folder, path) &&
            (!found || path.size() > drives[*found].path.size()))
            found = i;
    }
    return found;
}

bool IsUsersVolume(std::string_view folder, std::string_view device, std::string_view kind)
{
    if (IsOneOf(kind, kSystemKinds) || device.starts_with("/dev/loop"))
        return false;
    if (LiesInOneOf(folder, kVolumeFolders))
        return true;
    if (folder == "/" || LiesInOneOf(folder, kSystemFolders))
        return false;
    return device.starts_with("/dev/") || IsOneOf(kind, kNetworkKinds);
}

std::optional<std::string> FolderChoice::Open()
{
    if (!Chooses())
        return std::nullopt;
    before_ = settings_.DefaultFolder;
    return drives_.IsFolder(before_) ? std::optional(before_) : std::nullopt;
}

bool FolderChoice::DirectoryChanged(const std::string& folder)
{
    if (Chooses())
        settings_.DefaultFolder = folder;
    return Chooses();
}

std::optional<std::string> FolderChoice::Accept() const
{
    return Chooses() ? std::optional(settings_.DefaultFolder) : std::nullopt;
}

std::optional<std::string> FolderChoice::Cancel()
{
    if (Chooses())
        settings_.DefaultFolder = before_;
    return Accept();
}

} // namespace quorvane
