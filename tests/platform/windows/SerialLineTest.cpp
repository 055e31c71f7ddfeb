#include "platform/windows/WindowsPortNames.h"
#include "platform/windows/WindowsPortProbe.h"
#include "platform/windows/WindowsSerialLine.h"

#include <cstring>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(SerialLine, SettingsStandInTheSystemsRecord)
{
    struct Row {
        std::string_view what;
        LineSettings settings;
        DWORD speed;
        unsigned dataBits, parity, stopBits;
        bool waitsForCts;
        unsigned rts;
        bool byCharacters;
    };
    const Row rows[] = {
        {"the usual line", {}, 38400, 8, NOPARITY, ONESTOPBIT, true, RTS_CONTROL_HANDSHAKE, false},
        {"1.5 stop bits and both kinds of handshaking",
         {.speed = 4800,
          .parity = Parity::Odd,
          .dataBits = 7,
          .stopBits = StopBits::OneAndHalf,
          .handshaking = Handshaking::RtsCtsXonXoff},
         4800,
         7,
         ODDPARITY,
         ONE5STOPBITS,
         true,
         RTS_CONTROL_HANDSHAKE,
         true},
        {"two stop bits and characters",
         {.speed = 1200,
          .parity = Parity::Even,
          .stopBits = StopBits::Two,
          .handshaking = Handshaking::XonXoff},
         1200,
         8,
         EVENPARITY,
         TWOSTOPBITS,
         false,
         RTS_CONTROL_ENABLE,
         true},
        {"no handshaking",
         {.handshaking = Handshaking::None},
         38400,
         8,
         NOPARITY,
         ONESTOPBIT,
         false,
         RTS_CONTROL_ENABLE,
         false},
    };
    for (const Row& row : rows) {
        for (const int before : {0x00, 0xFF}) {
            DCB mode;
            std::memset(&mode, before, sizeof mode);
            SetMode(mode, row.settings);
            EXPECT_EQ(mode.BaudRate, row.speed) << row.what;
            EXPECT_EQ(mode.ByteSize, row.dataBits) << row.what;
            EXPECT_EQ(mode.Parity, row.parity) << row.what;
            EXPECT_EQ(mode.fParity != 0, row.parity != NOPARITY) << row.what;
            EXPECT_EQ(mode.StopBits, row.stopBits) << row.what;
            EXPECT_EQ(mode.fOutxCtsFlow != 0, row.waitsForCts) << row.what;
            EXPECT_EQ(mode.fRtsControl, row.rts) << row.what;
            EXPECT_EQ(mode.fOutX != 0, row.byCharacters) << row.what;
            EXPECT_EQ(mode.fInX != 0, row.byCharacters) << row.what;
            EXPECT_EQ(mode.XonChar, 0x11) << row.what;
            EXPECT_EQ(mode.XoffChar, 0x13) << row.what;
            EXPECT_TRUE(mode.fBinary) << row.what;
            EXPECT_FALSE(mode.fOutxDsrFlow || mode.fDsrSensitivity || mode.fNull || mode.fErrorChar ||
                         mode.fAbortOnError || mode.fTXContinueOnXoff)
                << row.what;
        }
    }
}

TEST(PortNames, EachNumberHasTheSystemsDevice)
{
    const WindowsPortNames names;
    EXPECT_EQ(names.Device(1)->path, R"(\\.\COM1)");
    EXPECT_EQ(names.Device(15)->path, R"(\\.\COM15)");
    EXPECT_FALSE(names.Device(0) || names.Device(16));
}

TEST(PortProbe, TellsWhatIsAbsentAndWhatIsNoLine)
{
    const WindowsPortProbe probe;
    for (const char* path : {R"(\\.\COM14)", R"(\\.\there-is-no-such-line)", ""})
        EXPECT_EQ(probe.Probe({path}).value().kind, PortFaultKind::Absent) << path;
    EXPECT_EQ(probe.Probe({R"(\\.\NUL)"}).value().kind, PortFaultKind::NotALine);
    EXPECT_FALSE(WindowsPortNames().Present({R"(\\.\COM14)"}));
    EXPECT_TRUE(WindowsPortNames().Present({R"(\\.\NUL)"}));
}

} // namespace
} // namespace quorvane
