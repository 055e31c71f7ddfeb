#include "platform/DeviceIdText.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(DeviceIdText, TellsNameAndSerialNumberOfAPort)
{
    EXPECT_EQ(WithoutPortName("USB Serial Port (COM3)", "COM3"), "USB Serial Port");
    EXPECT_EQ(WithoutPortName("USB Serial Port (COM13)", "COM3"), "USB Serial Port (COM13)");
    EXPECT_EQ(WithoutPortName("Port COM3", "COM3"), "Port COM3");
    EXPECT_EQ(SerialNumberIn(R"(USB\VID_0403&PID_6001\A50285BI)"), "A50285BI");
    EXPECT_EQ(SerialNumberIn(R"(USB\VID_067B&PID_2303\5&2C1C2A8A&0&3)"), "") << "made up by the system";
    EXPECT_EQ(SerialNumberIn(R"(ACPI\PNP0501\1)"), "") << "no USB device";
    EXPECT_TRUE(BelongsToDeviceAbove(R"(FTDIBUS\VID_0403+PID_6001+A50285BIA\0000)"));
    EXPECT_TRUE(BelongsToDeviceAbove(R"(USB\VID_0483&PID_5740&MI_00\7&1A2B&0&0000)"));
    EXPECT_FALSE(BelongsToDeviceAbove(R"(USB\VID_067B&PID_2303\5&2C1C2A8A&0&3)")) << "above it is a hub";
    EXPECT_EQ(ChannelIn(R"(USB\VID_0483&PID_5740&MI_02\7&1A2B&0&0000)"), "MI_02");
    EXPECT_EQ(ChannelIn(R"(FTDIBUS\VID_0403+PID_6010+A50285BIB\0000)"),
              R"(FTDIBUS\VID_0403+PID_6010+A50285BIB\0000)");
    EXPECT_EQ(ChannelIn(R"(USB\VID_067B&PID_2303\5&2C1C2A8A&0&3)"), "") << "one port";
}

} // namespace
} // namespace quorvane
