#include "platform/posix/PosixPortProbe.h"
#include "platform/posix/PosixSerialControl.h"
#include "tests/platform/PseudoTerminal.h"

#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/ioctl.h>

namespace quorvane::test {
namespace {

LineSettings Plain()
{
    return {.handshaking = Handshaking::None};
}

TEST(SerialControl, SaysWhyADeviceCannotBeUsed)
{
    const PseudoTerminal line;
    const std::string file = ::testing::TempDir() + "not-a-line-" + std::to_string(::getpid());
    ::close(::open(file.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    const struct {
        std::string_view what;
        std::string path;
        LineSettings settings;
        PortFaultKind kind;
    } rows[] = {
        {"absent", "/dev/there-is-no-such-line", Plain(), PortFaultKind::Absent},
        {"no name", "", Plain(), PortFaultKind::Absent},
        {"a file in the way", file + "/line", Plain(), PortFaultKind::Absent},
        {"a file", file, Plain(), PortFaultKind::NotALine},
        {"a device without a line", "/dev/null", Plain(), PortFaultKind::NotALine},
        {"a folder", "/dev", Plain(), PortFaultKind::NotALine},
        {"1.5 stop bits", line.Device().path, {.stopBits = StopBits::OneAndHalf}, PortFaultKind::Unsupported},
        {"a speed between", line.Device().path, {.speed = 38401}, PortFaultKind::Unsupported},
        {"no speed", line.Device().path, {.speed = 0}, PortFaultKind::Unsupported},
        {"9 data bits", line.Device().path, {.dataBits = 9}, PortFaultKind::Unsupported},
    };
    for (const auto& row : rows) {
        PosixSerialControl control;
        const auto fault = control.Open({row.path}, row.settings);
        ASSERT_TRUE(fault) << row.what;
        EXPECT_EQ(fault->kind, row.kind) << row.what;
        EXPECT_FALSE(fault->systemReason.empty()) << row.what;
        EXPECT_FALSE(control.IsOpen()) << row.what;
        EXPECT_FALSE(control.Output("N\r\n")) << row.what;
        EXPECT_EQ(control.InBufferCount(), 0) << row.what;
    }
    std::filesystem::remove(file);
}

TEST(SerialControl, SetsTheLine)
{
    constexpr tcflag_t kByCharacters = IXON | IXOFF;
    const struct {
        std::string_view what;
        LineSettings settings;
        speed_t speed;
        tcflag_t controlFlags; ///< of CSTOPB, PARODD and CRTSCTS; a pseudo-terminal drops PARENB and 7 bits
        tcflag_t inputFlags;   ///< of IXON, IXOFF, IXANY and INPCK
    } rows[] = {
        {"the usual line", {}, B38400, CRTSCTS, 0},
        {"no handshaking", {.handshaking = Handshaking::None}, B38400, 0, 0},
        {"by characters", {.handshaking = Handshaking::XonXoff}, B38400, 0, kByCharacters},
        {"by both", {.handshaking = Handshaking::RtsCtsXonXoff}, B38400, CRTSCTS, kByCharacters},
        {"slow, two stop bits", {.speed = 1200, .stopBits = StopBits::Two}, B1200, CSTOPB | CRTSCTS, 0},
        {"odd parity", {.speed = 4800, .parity = Parity::Odd, .dataBits = 7}, B4800, PARODD | CRTSCTS, INPCK},
        {"even parity", {.speed = 115200, .parity = Parity::Even}, B115200, CRTSCTS, INPCK},
    };
    for (const auto& row : rows) {
        const PseudoTerminal line;
        line.SetForTyping();
        PosixSerialControl control;
        ASSERT_FALSE(control.Open(line.Device(), row.settings)) << row.what;
        termios mode{};
        ASSERT_EQ(::tcgetattr(line.HeldEnd(), &mode), 0);
        EXPECT_EQ(::cfgetospeed(&mode), row.speed) << row.what;
        EXPECT_EQ(mode.c_cflag & (CSTOPB | PARODD | CRTSCTS), row.controlFlags) << row.what;
        EXPECT_EQ(mode.c_iflag & (IXON | IXOFF | IXANY | INPCK), row.inputFlags) << row.what;
        EXPECT_EQ(mode.c_lflag & (ICANON | ECHO | ISIG), 0U) << row.what;
    }
}

TEST(SerialControl, EveryByteGoesThroughUnchangedBothWays)
{
    const PseudoTerminal line;
    line.SetForTyping();
    PosixSerialControl control;
    ASSERT_FALSE(control.Open(line.Device(), Plain()));
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    ASSERT_EQ(line.Write(all), all.size());
    EXPECT_EQ(AwaitCount(control, 256), 256);
    EXPECT_EQ(control.Input(), all);
    EXPECT_TRUE(control.Output(all));
    EXPECT_EQ(line.Read(256), all);
}

TEST(SerialControl, ReadsSoManyCharactersOrNone)
{
    const PseudoTerminal line;
    PosixSerialControl control;
    ASSERT_FALSE(control.Open(line.Device(), Plain()));
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
    EXPECT_EQ(control.Input(), "9");
    control.SetInputLen(0);
    EXPECT_EQ(control.Input(), ":30:01;");
    EXPECT_EQ(control.Input(), "");
}

TEST(SerialControl, TakesInNoMoreThanItsBufferAndLosesNothing)
{
    const PseudoTerminal line;
    PosixSerialControl control;
    ASSERT_FALSE(control.Open(line.Device(), {.handshaking = Handshaking::None, .inBufferSize = 100}));
    const std::string sent = NumberedText(350);
    ASSERT_EQ(line.Write(sent), sent.size());
    ASSERT_EQ(AwaitCount(control, 100), 100);
    EXPECT_EQ(control.InBufferCount(), 100) << "full: the rest stays with the system";
    std::string read;
    while (read.size() < sent.size() && AwaitCount(control, 1) > 0)
        read += control.Input();
    EXPECT_EQ(read, sent);
}

TEST(SerialControl, ClearingDropsWhatTheSystemHoldsToo)
{
    const PseudoTerminal line;
    PosixSerialControl control;
    ASSERT_FALSE(control.Open(line.Device(), Plain()));
    line.Write("taken in");
    ASSERT_EQ(AwaitCount(control, 8), 8);
    line.Write("still with the system");
    ASSERT_TRUE(line.BytesArrived());
    control.ClearInBuffer();
    EXPECT_EQ(control.InBufferCount(), 0);
    line.Write("AN\r\n");
    EXPECT_EQ(AwaitCount(control, 4), 4);
    EXPECT_EQ(control.Input(), "AN\r\n");
}

TEST(SerialControl, OpensWithAnEmptyBufferAndNoReadLength)
{
    const PseudoTerminal line;
    PosixSerialControl control;
    ASSERT_FALSE(control.Open(line.Device(), Plain()));
    control.SetInputLen(7);
    line.Write("of the first opening");
    ASSERT_GT(AwaitCount(control, 20), 0);
    control.Close();
    EXPECT_EQ(control.InBufferCount(), 0);
    line.Write("between");
    ASSERT_TRUE(line.BytesArrived());
    ASSERT_FALSE(control.Open(line.Device(), Plain()));
    EXPECT_EQ(control.InBufferCount(), 0);
    line.Write("AN");
    ASSERT_EQ(AwaitCount(control, 2), 2);
    EXPECT_EQ(control.Input(), "AN");
}

TEST(SerialControl, ASecondOpenerIsToldThatThePortIsBusy)
{
    const PseudoTerminal line;
    PosixSerialControl first;
    PosixSerialControl second;
    const PosixPortProbe probe;
    ASSERT_FALSE(probe.Probe(line.Device()));
    ASSERT_FALSE(first.Open(line.Device(), Plain()));
    const auto fault = second.Open(line.Device(), Plain());
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->kind, PortFaultKind::Busy);
    EXPECT_EQ(fault->systemReason, std::strerror(EBUSY));
    const auto probed = probe.Probe(line.Device());
    ASSERT_TRUE(probed);
    EXPECT_EQ(probed->kind, PortFaultKind::Busy);
    int exclusive = 0;
    ::ioctl(line.HeldEnd(), TIOCGEXCL, &exclusive);
    EXPECT_NE(exclusive, 0) << "other programs see it too, and a refused opener does not take it away";
    EXPECT_TRUE(first.Output("N\r\n"));

    first.Close();
    ::ioctl(line.HeldEnd(), TIOCGEXCL, &exclusive);
    EXPECT_EQ(exclusive, 0);
    EXPECT_FALSE(second.Open(line.Device(), Plain()));
}

TEST(PortProbe, LeavesTheLineAsItIs)
{
    const PseudoTerminal line;
    termios before{};
    ::tcgetattr(line.HeldEnd(), &before);
    ::cfsetospeed(&before, B1200);
    before.c_lflag |= ECHO;
    ::tcsetattr(line.HeldEnd(), TCSANOW, &before);
    line.Write("not its business");
    ASSERT_TRUE(line.BytesArrived());

    EXPECT_FALSE(PosixPortProbe().Probe(line.Device()));

    termios after{};
    ::tcgetattr(line.HeldEnd(), &after);
    EXPECT_EQ(::cfgetospeed(&after), static_cast<speed_t>(B1200));
    EXPECT_EQ(after.c_lflag, before.c_lflag);
    EXPECT_EQ(after.c_cflag, before.c_cflag);
    EXPECT_EQ(after.c_iflag, before.c_iflag);
    EXPECT_TRUE(line.BytesArrived()) << "waiting bytes stay";
    EXPECT_EQ(PosixPortProbe().Probe({"/dev/null"})->kind, PortFaultKind::NotALine);
    EXPECT_EQ(PosixPortProbe().Probe({"/dev/there-is-no-such-line"})->kind, PortFaultKind::Absent);
}

} // namespace
} // namespace quorvane::test
