#include "simulator/DeviceLink.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

class DeviceLinkTest : public testing::Test {
public:
    DeviceLinkTest()
    {
        std::string name = (fs::temp_directory_path() / "device-link-XXXXXX").string();
        folder_ = mkdtemp(name.data());
    }
    ~DeviceLinkTest() override { fs::remove_all(folder_); }

protected:
    fs::path folder_;
};

TEST_F(DeviceLinkTest, LeadsToTheDeviceAndGoesWithIt)
{
    const fs::path path = folder_ / "line";
    {
        DeviceLink link(path);
        EXPECT_FALSE(link.PointTo("/dev/pts/7"));
        EXPECT_EQ(fs::read_symlink(path), "/dev/pts/7");
        EXPECT_FALSE(link.PointTo("/dev/pts/8"));
        EXPECT_EQ(fs::read_symlink(path), "/dev/pts/8");
    }
    EXPECT_FALSE(fs::is_symlink(path));
}

TEST_F(DeviceLinkTest, ReplacesALeftOverAndLeavesItsSuccessor)
{
    const fs::path path = folder_ / "line";
    fs::create_symlink("/dev/pts/999", path);
    {
        DeviceLink link(path);
        EXPECT_FALSE(link.PointTo("/dev/pts/7"));
        fs::remove(path);
        fs::create_symlink("/dev/pts/8", path); // another instrument has taken the name
    }
    EXPECT_EQ(fs::read_symlink(path), "/dev/pts/8");
}

TEST_F(DeviceLinkTest, RefusesAnythingElseAndTouchesNothing)
{
    const fs::path file = folder_ / "file";
    std::ofstream(file) << "kept";
    for (const fs::path& path : {file, folder_}) {
        DeviceLink link(path);
        EXPECT_EQ(link.PointTo("/dev/pts/7"), path.string() + " exists and is not a symbolic link");
    }
    EXPECT_EQ(fs::file_size(file), 4U);
    DeviceLink nowhere(folder_ / "none" / "line");
    EXPECT_TRUE(nowhere.PointTo("/dev/pts/7"));
}

} // namespace
} // namespace quorvane
