#include "serial/PortNotes.h"

#include "tests/support/FakePort.h"
#include "tests/support/ScriptedPorts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using testing::ElementsAre;

TEST(PortNotes, TellOfTheChosenPortAndOfThoseThatSomethingCanBeDoneAbout)
{
    const PortDescription adapter{"FTDI", "FT232R\nUART", "A50285BI"};
    PortFault denied{PortFaultKind::NoPermission, "Permission denied"};
    denied.group = "dialout";
    ScriptedPorts ports;
    ports.plugged = {{1, {PortFault{PortFaultKind::NotALine, ""}}},
                     {2, {PortFault{PortFaultKind::NotALine, ""}}},
                     {5, {std::nullopt, adapter}},
                     {6, {denied, {"", "Meter", ""}}},
                     {9, {PortFault{PortFaultKind::NoPermission, "no group can"}}},
                     {14, {}},
                     {15, {PortFault{PortFaultKind::Busy, "taken"}}}};
    const auto found = ScanPorts(FakePortNames(), ports, ports);
    EXPECT_EQ(ports.probes, 15);
    EXPECT_THAT(UsablePorts(found), ElementsAre("COM5", "COM14"));

    const std::string deniedNote = "COM6 (/dev/fake/6, Meter): Only members of the group dialout may use the "
                                   "port. To become one, enter this command in a terminal, then log out and "
                                   "in again: sudo usermod -aG dialout $USER";
    const std::string otherDeniedNote =
        "COM9 (/dev/fake/9): Your account is not allowed to use the port. Ask "
        "the administrator of this computer for it.";
    const std::string busyNote =
        "COM15 (/dev/fake/15): Another program is using the port. Close it and try again.";
    struct Row {
        std::string_view what, port, note;
    };
    const Row rows[] = {
        {"usable", "COM5", "COM5 (/dev/fake/5, FTDI, FT232R UART, serial number A50285BI): can be used"},
        {"of an unknown device", "COM14", "COM14 (/dev/fake/14): can be used"},
        {"an empty socket", "COM1",
         "COM1 (/dev/fake/1): The device does not answer as a serial line. Choose another port."},
        {"absent", "COM3",
         "COM3: There is no such port. Connect the instrument or its adapter, or choose another port."},
        {"none", "", "Choose the port that the instrument is connected to."},
        {"written in another way", "com05",
         "com05 (/dev/fake/5, FTDI, FT232R UART, serial number A50285BI): can be used"},
    };
    const ProgramPlace place;
    const StringTable table(TableLanguage::English);
    const Texts texts(table, place);
    for (const Row& row : rows)
        EXPECT_THAT(PortNotes(found, std::string(row.port), texts),
                    ElementsAre(row.note, deniedNote, otherDeniedNote, busyNote))
            << row.what;
    EXPECT_THAT(PortNotes(found, "COM15", texts), ElementsAre(busyNote, deniedNote, otherDeniedNote));

    const std::vector<FoundPort> ownName = {{.number = 3, .name = "COM3", .device = {R"(\\.\COM3)"}}};
    EXPECT_THAT(PortNotes(ownName, "COM3", texts), ElementsAre("COM3: can be used"));
}

} // namespace
} // namespace quorvane
