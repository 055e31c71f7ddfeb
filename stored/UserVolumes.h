#pragma once

#include <string_view>

namespace quorvane {

/// Whether a mounted file system is a volume that an operator may want to keep data on: a disk, a stick, a
/// share of the network, but nothing that belongs to the running system or to packaged programs.
///
/// @param folder  where it is mounted
/// @param device  what is mounted: "/dev/sdb1", "//server/share", "tmpfs"
/// @param kind    of the file system: "ext4", "squashfs"
[[nodiscard]] bool IsUsersVolume(std::string_view folder, std::string_view device, std::string_view kind);

} // namespace quorvane
