#include "tests/platform/posix/TerminalPair.h"
#include "tests/platform/posix/TriedSerial.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>

namespace quorvane {
namespace {

constexpr char kXon = 0x11;
constexpr char kXoff = 0x13;

/// How many descriptors this process has open.
std::ptrdiff_t OpenDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

struct SerialControlLoss : testing::Test {
    TerminalPair line;
    TriedControl control;
};
using SerialControlHeldBack = SerialControlLoss;

TEST_F(SerialControlLoss, WhatHadComeCanStillBeRead)
{
    ASSERT_FALSE(control.Open(line.Device(), {}));
    line.Write("09:30:01;0000");
    ASSERT_EQ(AwaitCount(control, 13), 13);
    line.HangUp();

    EXPECT_TRUE(control.IsOpen()) << "nobody has looked yet";
    EXPECT_EQ(control.InBufferCount(), 13);
    EXPECT_FALSE(control.IsOpen());
    EXPECT_FALSE(control.Output("N\r\n"));
    control.SetInputLen(9);
    EXPECT_EQ(control.Input(), "09:30:01;");
    control.Close();
    EXPECT_EQ(control.InBufferCount(), 4) << "closing a lost port does nothing";

    const TerminalPair other;
    ASSERT_FALSE(control.Open(other.Device(), {}));
    EXPECT_TRUE(control.Output("N\r\n"));
    EXPECT_EQ(other.Read(3), "N\r\n");
}

TEST_F(SerialControlLoss, GivesTheDescriptorBack)
{
    const std::ptrdiff_t before = OpenDescriptors();
    ASSERT_FALSE(control.Open(line.Device(), {}));
    EXPECT_EQ(OpenDescriptors(), before + 1);
    line.HangUp();
    EXPECT_EQ(control.InBufferCount(), 0);
    EXPECT_EQ(OpenDescriptors(), before - 1) << "the line is closed, and the test's end is";
}

TEST(SerialControlLosses, AreNoticedByEachCallThatTouchesTheLine)
{
    struct Row {
        std::string_view what;
        void (*act)(TriedControl&);
    };
    const Row rows[] = {
        {"count", [](TriedControl& control) { EXPECT_EQ(control.InBufferCount(), 0); }},
        {"read", [](TriedControl& control) { EXPECT_EQ(control.Input(), ""); }},
        {"write", [](TriedControl& control) { EXPECT_FALSE(control.Output("N\r\n")); }},
        {"clear", [](TriedControl& control) { control.ClearInBuffer(); }},
    };
    for (const Row& row : rows) {
        TerminalPair line;
        TriedControl control;
        ASSERT_FALSE(control.Open(line.Device(), {})) << row.what;
        line.HangUp();
        row.act(control);
        EXPECT_FALSE(control.IsOpen()) << row.what;
    }
}

TEST_F(SerialControlLoss, IsNoticedWithAFullBufferToo)
{
    ASSERT_FALSE(control.Open(line.Device(), {.inBufferSize = 8}));
    line.Write("0123456789");
    ASSERT_EQ(AwaitCount(control, 8), 8);
    line.HangUp();
    EXPECT_EQ(control.InBufferCount(), 8);
    EXPECT_FALSE(control.IsOpen());
    EXPECT_EQ(control.Input(), "01234567");
}

TEST_F(SerialControlHeldBack, OutputEndsByRefusingAndLosesNothingItTook)
{
    ASSERT_FALSE(control.Open(line.Device(), {}));
    std::string taken;
    bool refused = false;
    for (int i = 0; i < 10000 && !refused; ++i) {
        const std::string text = NumberedText(1000, i * 1000);
        refused = !control.Output(text);
        if (!refused)
            taken += text;
    }
    ASSERT_TRUE(refused) << "the other side reads nothing, and the queue is bounded";
    EXPECT_TRUE(control.IsOpen()) << "held back is not lost";

    std::string read = line.Read(taken.size() - kOutCapacity);
    for (int i = 0; i < 100 && read.size() < taken.size(); ++i) {
        EXPECT_EQ(control.InBufferCount(), 0); // sends on
        read += line.Read(std::min<std::size_t>(100, taken.size() - read.size()));
    }
    EXPECT_TRUE(read == taken);
    EXPECT_FALSE(control.Output(std::string(kOutCapacity + 1, 'x'))) << "is not begun";
    EXPECT_TRUE(control.Output("N\r\n"));
    EXPECT_EQ(line.Read(3), "N\r\n");
}

TEST_F(SerialControlHeldBack, XoffHoldsBackAndXonReleases)
{
    ASSERT_FALSE(control.Open(line.Device(), {.handshaking = Handshaking::XonXoff}));
    line.Write(std::string(1, kXoff) + "held");
    ASSERT_EQ(AwaitCount(control, 4), 4);
    EXPECT_EQ(control.Input(), "held") << "the character itself is not data";
    const std::string text = NumberedText(kOutCapacity);
    EXPECT_TRUE(control.Output(text));
    EXPECT_FALSE(control.Output("N\r\n")) << "the queue is full";
    line.Write(std::string(1, kXon) + "on");
    ASSERT_EQ(AwaitCount(control, 2), 2);
    EXPECT_TRUE(line.Read(text.size()) == text);
}

TEST_F(SerialControlHeldBack, ClosingGivesUpWhatWaits)
{
    ASSERT_FALSE(control.Open(line.Device(), {.handshaking = Handshaking::RtsCtsXonXoff}));
    line.Write(std::string(1, kXoff) + "!");
    ASSERT_EQ(AwaitCount(control, 1), 1);
    ASSERT_TRUE(control.Output("given up"));
    control.Close();
    EXPECT_FALSE(control.IsOpen());
    ASSERT_FALSE(control.Open(line.Device(), {.handshaking = Handshaking::XonXoff}));
    EXPECT_TRUE(control.Output("N\r\n"));
    EXPECT_EQ(line.Read(3), "N\r\n") << "neither the old text nor the old XOFF is left";
}

} // namespace
} // namespace quorvane
