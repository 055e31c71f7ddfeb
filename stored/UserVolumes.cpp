#include "stored/UserVolumes.h"

#include "stored/FolderChoice.h"

#include <algorithm>
#include <span>

namespace quorvane {
namespace {

/// Where volumes of the operator's are mounted.
constexpr std::string_view kVolumeFolders[] = {"/media", "/run/media", "/mnt"};

/// What is mounted below these is the system's.
constexpr std::string_view kSystemFolders[] = {"/boot", "/efi", "/snap", "/var", "/run", "/etc", "/usr",
                                               "/proc", "/sys", "/dev",  "/tmp", "/opt", "/nix"};

/// Memory, packed programs and layers of containers, wherever they are mounted.
constexpr std::string_view kSystemKinds[] = {"tmpfs",   "ramfs", "devtmpfs", "squashfs",      "erofs",
                                             "overlay", "aufs",  "autofs",   "fuse.snapfuse", "fuse.portal"};

constexpr std::string_view kNetworkKinds[] = {"nfs", "nfs4", "cifs", "smb3", "fuse.sshfs"};

bool LiesInOneOf(std::string_view folder, std::span<const std::string_view> places)
{
    return std::ranges::any_of(places, [folder](std::string_view place) { return LiesIn(folder, place); });
}

bool IsOneOf(std::string_view kind, std::span<const std::string_view> kinds)
{
    return std::ranges::find(kinds, kind) != kinds.end();
}

} // namespace

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

} // namespace quorvane
