#include "platform/posix/PosixDeviceWatch.h"
#include "platform/posix/PosixPortNames.h"
#include "tests/support/ScratchFolder.h"

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(DeviceWatchTest, TellsOnceOfASerialDeviceThatComesOrGoes)
{
    const ScratchFolder folder;
    PosixDeviceWatch watch(folder.Path());
    const PosixPortNames names;
    const auto come = [&](const char* name) { std::ofstream(folder.Path(name)).put('x'); };

    EXPECT_FALSE(watch.TakeChange());
    EXPECT_FALSE(names.Present({folder.Path("ttyTEST")}));
    come("ttyTEST");
    EXPECT_TRUE(names.Present({folder.Path("ttyTEST")}));
    for (int i = 0; i < 300; ++i) // more than one read takes
        come(("sdx" + std::to_string(i)).c_str());
    come("ttyLAST");
    EXPECT_TRUE(watch.TakeChange());
    EXPECT_FALSE(watch.TakeChange()) << "once";

    come("sda1");
    come("atty");
    come("ttyTEST"); // written to, and neither new nor gone
    EXPECT_FALSE(watch.TakeChange());
    come("rfcomm0");
    EXPECT_TRUE(watch.TakeChange());
    ASSERT_EQ(std::rename(folder.Path("ttyTEST").c_str(), folder.Path("x").c_str()), 0);
    EXPECT_TRUE(watch.TakeChange());
    ASSERT_EQ(std::remove(folder.Path("rfcomm0").c_str()), 0);
    EXPECT_TRUE(watch.TakeChange());
}

TEST(DeviceWatchTest, NoticesNothingWhereThereIsNoWatch)
{
    const ScratchFolder folder;
    PosixDeviceWatch watch(folder.Path("absent"));
    EXPECT_FALSE(watch.TakeChange());
}

} // namespace
} // namespace quorvane
