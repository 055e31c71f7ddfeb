#include "stored/FolderChoice.h"

#include "stored/UserVolumes.h"

#include <gtest/gtest.h>
#include <vector>

namespace quorvane {
namespace {

TEST(FolderChoice, TheDriveIsTheLetterOrTheLongestBeginning)
{
    const std::vector<Drive> letters = {{"C:\\", "System"}, {"D:\\", ""}};
    const std::vector<Drive> mounts = {
        {"/", ""}, {"/home/anna", ""}, {"/media/anna/A", ""}, {"/media/anna/AB", ""}};
    struct Row {
        std::string_view folder;
        const std::vector<Drive>& drives;
        std::optional<std::size_t> place;
    };
    const Row rows[] = {
        {"D:\\Data", letters, 1},
        {"d:\\data", letters, 1},
        {"C:", letters, 0},
        {"E:\\Data", letters, std::nullopt},
        {"\\\\server\\share", letters, std::nullopt},
        {"/home/anna", mounts, 1},
        {"/home/anna/data", mounts, 1},
        {"/home/annabel", mounts, 0},
        {"/media/anna/AB/x", mounts, 3}, // begins with the letters of the one before, too
        {"/media/anna/A", mounts, 2},
        {"/home/anna\\x", mounts, 0}, // a name with a backslash
        {"/Home/anna", mounts, 0},    // case counts here
        {"data", mounts, std::nullopt},
        {"", mounts, std::nullopt},
    };
    for (const Row& row : rows)
        EXPECT_EQ(DriveOf(row.folder, row.drives), row.place) << row.folder;
}

TEST(FolderChoice, VolumesAreWhatAnOperatorKeepsDataOn)
{
    struct Row {
        std::string_view folder, device, kind;
        bool listed;
    };
    const Row rows[] = {
        {"/media/anna/STICK", "/dev/sdb1", "vfat", true},
        {"/run/media/anna/STICK", "/dev/sdb1", "exfat", true},
        {"/mnt/c", "C:\\", "9p", true},
        {"/home", "/dev/sda3", "ext4", true},
        {"/data", "/dev/mapper/data", "xfs", true},
        {"/srv/share", "server:/share", "nfs4", true},
        {"/srv/dust", "//server/dust", "cifs", true},
        {"/", "/dev/sda2", "ext4", false},
        {"/boot/efi", "/dev/sda1", "vfat", false},
        {"/snap/core/1", "/dev/loop3", "squashfs", false},
        {"/media/anna/image", "/dev/loop4", "squashfs", false},
        {"/run/user/1000", "tmpfs", "tmpfs", false},
        {"/mnt/memory", "tmpfs", "tmpfs", false},
        {"/var/lib/docker/overlay2/x/merged", "overlay", "overlay", false},
        {"/etc/hosts", "/dev/vda1", "ext4", false},
        {"/mediator", "mediator", "fuse.mediator", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(IsUsersVolume(row.folder, row.device, row.kind), row.listed) << row.folder;
}

} // namespace
} // namespace quorvane
