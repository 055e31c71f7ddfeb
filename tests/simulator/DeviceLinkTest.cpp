#include "simulator/DeviceLink.h"

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

TEST(DeviceLink, LeadsToTheDeviceGoesWithItAndLeavesItsSuccessor)
{
    const ScratchFolder folder;
    const fs::path path = folder.Path("line");
    fs::create_symlink("/dev/pts/999", path); // a left-over
    EXPECT_FALSE(DeviceLink(path).PointTo("/dev/pts/7"));
    EXPECT_FALSE(fs::is_symlink(path));
    {
        DeviceLink link(path);
        EXPECT_FALSE(link.PointTo("/dev/pts/7"));
        EXPECT_EQ(fs::read_symlink(path), "/dev/pts/7");
        fs::remove(path);
        fs::create_symlink("/dev/pts/8", path); // another instrument has taken the name
    }
    EXPECT_EQ(fs::read_symlink(path), "/dev/pts/8");
}

TEST(DeviceLink, RefusesAnythingElseAndTouchesNothing)
{
    const ScratchFolder folder;
    const std::string file = folder.Path("file");
    std::ofstream(file) << "kept";
    const std::string foreign = folder.Path("foreign");
    fs::create_symlink(file, foreign);
    for (const std::string& path : {file, foreign, folder.Path(".")})
        EXPECT_EQ(DeviceLink(path).PointTo("/dev/pts/7"),
                  path + ": exists and is no link to a virtual serial line");
    EXPECT_TRUE(fs::is_symlink(foreign));
    EXPECT_EQ(FileBytes(file), "kept");
    EXPECT_TRUE(DeviceLink(folder.Path("none/line")).PointTo("/dev/pts/7"));
}

} // namespace
} // namespace quorvane
