#include "platform/windows/WindowsSystemInfo.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>
#include <windows.h>

namespace quorvane {
namespace {

TEST(WindowsSystemInfo, KnowsTheVersion)
{
    const WindowsSystemInfo system;
    const auto basic = system.Version();
    const auto extended = system.VersionWithProduct();
    ASSERT_TRUE(basic && extended);
    const DWORD asked = ::GetVersion(); // major and minor version in its lowest two bytes
    EXPECT_EQ(basic->majorVersion, asked & 0xFFU);
    EXPECT_EQ(basic->minorVersion, asked >> 8U & 0xFFU);
    EXPECT_EQ(basic->platformId, 2U);
    EXPECT_EQ(basic->servicePack.size(), 128U) << "as it stands in the record";
    EXPECT_EQ(extended->majorVersion, basic->majorVersion);
    EXPECT_EQ(extended->minorVersion, basic->minorVersion);
    EXPECT_TRUE(extended->productType >= 1 && extended->productType <= 3) << int{extended->productType};
}

TEST(WindowsSystemInfo, KnowsTheProcessors)
{
    WindowsSystemInfo system;
    system.AskForProcessors();
    std::optional<std::vector<ProcessorRecord>> processors;
    while (!(processors = system.TakeProcessors()))
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    ASSERT_FALSE(processors->empty());
    EXPECT_NE(processors->front().name, "");
    EXPECT_NE(processors->front().manufacturer, "");
    EXPECT_GT(processors->front().maxClockSpeed, 0);
}

} // namespace
} // namespace quorvane
