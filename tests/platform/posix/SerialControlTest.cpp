#include "tests/platform/posix/TerminalPair.h"
#include "tests/platform/posix/TriedSerial.h"
#include "tests/support/ScratchFolder.h"

#include <cstring>
#include <gtest/gtest.h>
#include <sys/ioctl.h>

namespace quorvane {
namespace {

constexpr LineSettings kPlain = {.handshaking = Handshaking::None};

struct RefusalRow {
    std::string_view what;
    std::string path;
    LineSettings settings;
    PortFaultKind kind;
};

void ExpectRefusal(const RefusalRow& row)
{
    TriedControl control;
    const auto fault = control.Open({row.path}, row.settings);
    ASSERT_TRUE(fault) << row.what;
    EXPECT_EQ(fault->kind, row.kind) << row.what << ": " << fault->systemReason;
    EXPECT_FALSE(fault->systemReason.empty()) << row.what;
    EXPECT_FALSE(control.IsOpen() || control.Output("N\r\n")) << row.what;
    EXPECT_EQ(control.InBufferCount(), 0) << row.what;
}

TEST(SerialControl, SaysWhyADeviceCannotBeUsed)
{
    const TerminalPair line;
    const ScratchFolder folder;
    const std::string file = folder.Path("not-a-line");
    std::ofstream(file) << "kept";
    ExpectRefusal({"a file", file, kPlain, PortFaultKind::NotALine});
    ExpectRefusal({"9 data bits", line.Device().path, {.dataBits = 9}, PortFaultKind::Unsupported});
}

TEST(SerialControl, SaysWhatThisSystemCannotUse)
{
    const TerminalPair line;
    const LineSettings settings{.stopBits = StopBits::OneAndHalf};
    ExpectRefusal({"absent", "/dev/there-is-no-such-line", kPlain, PortFaultKind::Absent});
    ExpectRefusal({"a folder", "/dev", kPlain, PortFaultKind::NotALine});
    ExpectRefusal({"1.5 stop bits", line.Device().path, settings, PortFaultKind::Unsupported});
}

TEST(SerialControl, SetsTheLine)
{
    constexpr tcflag_t kByCharacters = IXON | IXOFF;
    struct Row {
        std::string_view what;
        LineSettings settings;
        speed_t speed;
        tcflag_t controlFlags; ///< of CSTOPB, PARODD and CRTSCTS; a pseudo-terminal drops PARENB and 7 bits
        tcflag_t inputFlags;   ///< of IXON, IXOFF, IXANY and INPCK
    };
    const Row rows[] = {
        {"the usual line", {}, B38400, CRTSCTS, 0},
        {"no handshaking", kPlain, B38400, 0, 0},
        {"by characters", {.handshaking = Handshaking::XonXoff}, B38400, 0, kByCharacters},
        {"by both", {.handshaking = Handshaking::RtsCtsXonXoff}, B38400, CRTSCTS, kByCharacters},
        {"slow, two stop bits", {.speed = 1200, .stopBits = StopBits::Two}, B1200, CSTOPB | CRTSCTS, 0},
        {"odd parity", {.speed = 4800, .parity = Parity::Odd, .dataBits = 7}, B4800, PARODD | CRTSCTS, INPCK},
    };
    for (const Row& row : rows) {
        const TerminalPair line;
        line.SetForTyping();
        TriedControl control;
        ASSERT_FALSE(control.Open(line.Device(), row.settings)) << row.what;
        const termios mode = line.Mode();
        EXPECT_EQ(::cfgetospeed(&mode), row.speed) << row.what;
        EXPECT_EQ(mode.c_cflag & (CSTOPB | PARODD | CRTSCTS), row.controlFlags) << row.what;
        const tcflag_t looked = IXON | IXOFF | INPCK | (TriesWindows() ? 0 : IXANY); // which Windows has not
        EXPECT_EQ(mode.c_iflag & looked, row.inputFlags) << row.what;
        EXPECT_EQ(mode.c_lflag & (ICANON | ECHO | ISIG), 0U) << row.what;
    }
}

/// An open port and the other end of its line.
struct OpenLineTest : testing::Test {
    void SetUp() override
    {
        line.SetForTyping();
        ASSERT_FALSE(control.Open(line.Device(), kPlain));
    }

    const TerminalPair line;
    TriedControl control;
};

TEST_F(OpenLineTest, EveryByteGoesThroughUnchangedBothWays)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    line.Write(all);
    EXPECT_EQ(AwaitCount(control, 256), 256);
    EXPECT_EQ(control.Input(), all);
    EXPECT_TRUE(control.Output(all));
    EXPECT_EQ(line.Read(256), all);
}

TEST_F(OpenLineTest, ReadsSoManyCharactersOrNone)
{
    EXPECT_EQ(control.Input(), "");
    line.Write("AD\r");
    ASSERT_EQ(AwaitCount(control, 3), 3);
    control.SetInputLen(4);
    EXPECT_EQ(control.Input(), "") << "a part of an acknowledgement stays";
    EXPECT_EQ(control.InBufferCount(), 3);
    line.Write("\n09:30:01;");
    ASSERT_EQ(AwaitCount(control, 13), 13);
    EXPECT_EQ(control.Input(), "AD\r\n");
    control.SetInputLen(1);
    EXPECT_EQ(control.Input(), "0");
    control.SetInputLen(0);
    EXPECT_EQ(control.Input(), "9:30:01;");
    EXPECT_EQ(control.Input(), "");
}

TEST_F(OpenLineTest, TakesInNoMoreThanItsBufferAndLosesNothing)
{
    ASSERT_FALSE(control.Open(line.Device(), {.handshaking = Handshaking::None, .inBufferSize = 100}));
    const std::string sent = NumberedText(350);
    line.Write(sent);
    ASSERT_EQ(AwaitCount(control, 100), 100);
    EXPECT_EQ(control.InBufferCount(), 100) << "full: the rest stays with the system";
    std::string read;
    while (read.size() < sent.size() && AwaitCount(control, 1) > 0)
        read += control.Input();
    EXPECT_EQ(read, sent);
}

TEST_F(OpenLineTest, ClearingAndOpeningDropWhatTheSystemHoldsToo)
{
    for (const bool reopens : {false, true}) {
        control.SetInputLen(7);
        line.Write("taken in");
        ASSERT_EQ(AwaitCount(control, 8), 8);
        if (reopens)
            control.Close();
        line.Write("still with the system");
        ASSERT_TRUE(line.BytesArrived());
        if (reopens)
            ASSERT_FALSE(control.Open(line.Device(), kPlain));
        else
            control.ClearInBuffer();
        EXPECT_EQ(control.InBufferCount(), 0);
        line.Write("AN\r\n");
        EXPECT_EQ(AwaitCount(control, 4), 4);
        EXPECT_EQ(control.Input(), reopens ? "AN\r\n" : "") << "an opened port has no read length";
        control.ClearInBuffer();
    }
}

TEST(SerialControl, ASecondOpenerIsToldThatThePortIsBusy)
{
    const TerminalPair line;
    TriedControl first;
    TriedControl second;
    const TriedProbe probe;
    ASSERT_FALSE(probe.Probe(line.Device()));
    ASSERT_FALSE(first.Open(line.Device(), kPlain));
    for (const auto& fault : {second.Open(line.Device(), kPlain), probe.Probe(line.Device())}) {
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->kind, PortFaultKind::Busy);
        EXPECT_EQ(fault->systemReason, std::strerror(EBUSY));
    }
    int exclusive = 0;
    ::ioctl(line.HeldEnd(), TIOCGEXCL, &exclusive);
    EXPECT_NE(exclusive, 0) << "other programs see it too, and a refused opener does not take it away";
    EXPECT_TRUE(first.Output("N\r\n"));

    first.Close();
    ::ioctl(line.HeldEnd(), TIOCGEXCL, &exclusive);
    EXPECT_EQ(exclusive, 0);
    EXPECT_FALSE(second.Open(line.Device(), kPlain));
}

TEST(PortProbe, LeavesTheLineAsItIs)
{
    const TerminalPair line;
    line.SetForTyping();
    line.Write("not its business\n");
    ASSERT_TRUE(line.BytesArrived());
    const termios before = line.Mode();

    EXPECT_FALSE(TriedProbe().Probe(line.Device()));

    const termios after = line.Mode();
    EXPECT_EQ(::cfgetospeed(&after), ::cfgetospeed(&before));
    EXPECT_EQ(after.c_lflag, before.c_lflag);
    EXPECT_EQ(after.c_cflag, before.c_cflag);
    EXPECT_EQ(after.c_iflag, before.c_iflag);
    EXPECT_TRUE(line.BytesArrived()) << "waiting bytes stay";
    EXPECT_EQ(TriedProbe().Probe({"/dev/null"})->kind, PortFaultKind::NotALine);
}

} // namespace
} // namespace quorvane
