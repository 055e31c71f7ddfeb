#include "tests/simulator/SimulatedDevice.h"

#include <algorithm>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using Time = SimulatedInstrument::Time;

TEST(InstrumentFaults, FaultsThatNeedNoTiming)
{
    /// A whole exchange: N at 0 s, D at 1 s by its clock, then everything until 4.5 s.
    struct Row {
        std::vector<std::string_view> faults;
        std::string toN, toD, lines;
    };
    const std::string first = "09:30:02;0000006;000.008;1.3\r\n";
    const std::string second = "09:30:03;0000962;001.250;1.3\r\n";
    const std::string third = "09:30:04;0000025;000.033;1.3";
    const std::string all = first + second + third + "\r\n";
    const Row rows[] = {
        {{"silent"}, "", "", ""},
        {{"no-ack:D"}, "AN\r\n", "", all},
        {{"wrong-ack"}, "AX\r\n", "AX\r\n", all},
        {{"no-line-end:2"}, "AN\r\n", "AD\r\n", first + "09:30:03;0000962;001.250;1.3" + third + "\r\n"},
        {{"dropped-byte:29,2"},
         "AN\r\n",
         "AD\r\n",
         first + "09:30:03;0000962;001.250;1.3\n" + third + "\r\n"},
        // There is no byte 30 left to drop.
        {{"wrong-ack:N", "no-line-end:3", "dropped-byte:30,3"}, "AX\r\n", "AD\r\n", first + second + third},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.faults.front());
        Device device(With(row.faults));
        EXPECT_EQ(device.Ask("N\r\n", 0s), row.toN);
        EXPECT_EQ(device.Ask("D\r\n", 1s), row.toD);
        EXPECT_EQ(device.Take(4500ms), row.lines);
    }
}

TEST(InstrumentFaults, LateAcknowledgementKeepsTheOrderAndThePace)
{
    Device device(With({"late-ack:250,D"}));
    EXPECT_EQ(device.Ask("D\r\n", 0s), "");
    EXPECT_EQ(device.Take(249ms), "");
    EXPECT_EQ(device.Take(1249ms), "AD\r\n");
    EXPECT_EQ(device.Take(1250ms), kLine1);
    EXPECT_EQ(device.Ask("D\r\nN\r\n", 2s), "");
    EXPECT_EQ(device.Take(2250ms), "AD\r\nAN\r\n"); // nothing overtakes on a line
    EXPECT_EQ(device.Take(1h), "");                 // and N came after D
}

TEST(InstrumentFaults, SplitLinesPause)
{
    Device device(With({"split:8"}));
    EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n"); // too short to be split
    EXPECT_EQ(device.Take(1s), "09:30:01");
    EXPECT_EQ(device.NextDue(), Time(1040ms));
    EXPECT_EQ(device.Take(1039ms), "");
    EXPECT_EQ(device.Take(1040ms), ";0000006;000.008;1.3\r\n");
    EXPECT_EQ(device.Take(2s), "09:30:02");
    EXPECT_EQ(device.Ask("N\r\n", 2010ms), ""); // behind the line that has begun
    EXPECT_EQ(device.Take(2040ms), ";0000962;001.250;1.3\r\nAN\r\n");
}

TEST(InstrumentFaults, GarbageStandsBeforeTheFirstLineOnly)
{
    Device device(With({"garbage:200"}));
    EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
    const std::string answer = device.Take(1s);
    EXPECT_EQ(answer.size(), 200 + kLine1.size());
    EXPECT_TRUE(answer.ends_with(kLine1));
    EXPECT_EQ(answer.find_first_of("\r\n"), 228U) << "garbage is no line";
    EXPECT_EQ(device.Take(2s), kLine2);
}

TEST(InstrumentFaults, ChatterLeavesNoQuietMomentAndStopsForNothing)
{
    Device device(With({"chatter"}));
    std::string all;
    for (Time now = 0s; now <= 3s; now += 10ms) {
        const std::string chunk = device.Ask(now == 1s ? "N\r\n" : "", now);
        EXPECT_FALSE(chunk.empty()) << now.count();
        all += chunk;
    }
    EXPECT_NE(all.find("AN\r\n"), std::string::npos);
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 1);
}

TEST(InstrumentFaults, HangsUpAfterItsLastLineSincePowerOn)
{
    Device device(With({"hang-up:2", "split:20", "chatter"}));
    (void) device.Ask("D\r\n", 0s);
    (void) device.Take(1500ms);
    (void) device.Ask("D\r\n", 1500ms);
    (void) device.Take(2500ms);
    EXPECT_FALSE(device.HungUp(2500ms)); // the rest of the second line is still to come
    (void) device.Take(2540ms);
    EXPECT_TRUE(device.HungUp(2540ms));
    EXPECT_EQ(device.Ask("N\r\nD\r\n", 3s), "");
    EXPECT_EQ(device.NextDue(), std::nullopt) << "a device that is gone does not chatter";
}

TEST(InstrumentFaults, IsUnpluggedAgainAndAgainAndMeasuresOn)
{
    Device device(With({"unplug:2,1200"}));
    (void) device.Ask("D\r\n", 0s);
    EXPECT_EQ(device.Take(2400ms), kLine1 + kLine2);
    EXPECT_EQ(device.NextTurnOfPlug(2400ms), 2500ms) << "half an interval behind the line";
    EXPECT_FALSE(device.Unplugged(2499ms));
    EXPECT_EQ(device.Take(3600ms), kLine3);
    EXPECT_TRUE(device.Unplugged(3699ms));
    EXPECT_EQ(device.NextTurnOfPlug(3600ms), 3700ms);
    EXPECT_FALSE(device.Unplugged(3700ms));
    EXPECT_EQ(device.NextTurnOfPlug(3700ms), std::nullopt);
    (void) device.Take(5s); // two more lines: the one that nobody heard does not count
    EXPECT_EQ(device.NextTurnOfPlug(5s), 5500ms);
}

TEST(InstrumentFaults, OfSettingsAndOfTheClockRecord)
{
    struct Row {
        std::string_view fault;
        std::string requests, atOnce, at40ms, at1s;
    };
    const std::string setClock = "T2024;05;01;12;00;00\r\n";
    const Row rows[] = {
        {"silent:T", setClock + "M\r\n", "AM\r\n1970/01/01 09:30:00\r\n", "", ""},
        {"no-ack:T", setClock + "M\r\n", "AM\r\n2024/05/01 12:00:00\r\n", "", ""},
        {"no-ack:M", "M\r\n", "1970/01/01 09:30:00\r\n", "", ""},
        {"wrong-ack:M", "E2.5\r\nM\r\n", "AE\r\nAX\r\n1970/01/01 09:30:00\r\n", "", ""},
        {"wrong-ack:P", "P;09:30:00;05:00;00007\r\nP\r\n", "AX\r\n", "", ""},
        // It shows the time when it is sent.
        {"late-ack:1000,M", setClock + "M\r\n", "AT\r\n", "", "AM\r\n2024/05/01 12:00:01\r\n"},
        {"late-ack:1000,E", "M\r\nE2.5\r\nN\r\n", "AM\r\n1970/01/01 09:30:00\r\n", "", "AE\r\nAN\r\n"},
        {"split:11", "M\r\n", "AM\r\n1970/01/01 ", "09:30:00\r\n", ""},
        {"split:2", "M\r\n", "AM", "\r\n19", "70/01/01 09:30:00\r\n"},
        {"split:21", "M\r\n", "AM\r\n1970/01/01 09:30:00\r\n", "", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.fault);
        Device device(With({row.fault}));
        EXPECT_EQ(device.Ask(row.requests, 0s), row.atOnce);
        EXPECT_EQ(device.Take(40ms), row.at40ms);
        EXPECT_EQ(device.Take(1s), row.at1s);
    }
}

TEST(InstrumentFaults, WrongNamesAndArgumentsAreRefused)
{
    InstrumentFault fault;
    for (const std::string_view text : {"", "Silent", "silent:NN", "late-ack:0", "late-ack:1,N,", "split",
                                        "split:,40", "garbage:16x", "chatter:1", "hang-up:5,5"})
        EXPECT_TRUE(ReadFault(text, fault)) << text;
    EXPECT_EQ(ReadFault("split:99", fault).value().text,
              "wrong fault \"split:99\"; it is written split:BYTE[,MS], 1 to 29, 1 to 60000");
}

} // namespace
} // namespace quorvane
