#include "tests/simulator/SimulatedDevice.h"

#include <algorithm>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using Time = SimulatedInstrument::Time;

/// What a whole exchange looks like with a fault: N at 0 s, D at 1 s, then everything until 4.5 s.
struct FaultRow {
    std::initializer_list<std::string_view> faults;
    std::string toN, toD, lines;
};

TEST(InstrumentFaultsOnTheLine, FaultsThatNeedNoTiming)
{
    // One second of its clock passes before D, so its lines carry the seconds 2, 3 and 4.
    const std::string first = "09:30:02;0000006;000.008;1.3\r\n";
    const std::string second = "09:30:03;0000962;001.250;1.3\r\n";
    const std::string third = "09:30:04;0000025;000.033;1.3\r\n";
    const std::string all = first + second + third;
    const FaultRow rows[] = {
        {{}, "AN\r\n", "AD\r\n", all},
        {{"silent"}, "", "", ""},
        {{"silent:N"}, "", "AD\r\n", all},
        {{"silent:D"}, "AN\r\n", "", ""},
        {{"no-ack"}, "", "", all},
        {{"no-ack:D"}, "AN\r\n", "", all},
        {{"wrong-ack"}, "AX\r\n", "AX\r\n", all},
        {{"wrong-ack:D"}, "AN\r\n", "AX\r\n", all},
        {{"no-line-end"}, "AN\r\n", "AD\r\n", first + second + "09:30:04;0000025;000.033;1.3"},
        {{"no-line-end:2"}, "AN\r\n", "AD\r\n", first + "09:30:03;0000962;001.250;1.3" + third},
        {{"dropped-byte:12,3"}, "AN\r\n", "AD\r\n", first + second + "09:30:04;000025;000.033;1.3\r\n"},
        {{"dropped-byte:29,2"}, "AN\r\n", "AD\r\n", first + "09:30:03;0000962;001.250;1.3\n" + third},
        {{"dropped-byte:30,2"}, "AN\r\n", "AD\r\n", first + "09:30:03;0000962;001.250;1.3\r" + third},
        {{"dropped-byte:1,1"},
         "AN\r\n",
         "AD\r\n",
         "9:30:02;0000006;000.008;1.3\r\n9:30:03;0000962;001.250;1.3\r\n9:30:04;0000025;000.033;1.3\r\n"},
        {{"wrong-ack:N", "no-ack:D", "no-line-end:3"},
         "AX\r\n",
         "",
         first + second + "09:30:04;0000025;000.033;1.3"},
        {{"no-line-end:3", "dropped-byte:30,3"},
         "AN\r\n",
         "AD\r\n",
         first + second + "09:30:04;0000025;000.033;1.3"}, // there is no byte 30 left to drop
    };
    for (const FaultRow& row : rows) {
        std::string what;
        for (const std::string_view fault : row.faults)
            what.append(fault).append(" ");
        SCOPED_TRACE(what);
        Device device(With(row.faults));
        EXPECT_EQ(device.Ask("N\r\n", 0s), row.toN);
        EXPECT_EQ(device.Ask("D\r\n", 1s), row.toD);
        EXPECT_EQ(device.Take(4500ms), row.lines);
    }
}

TEST(InstrumentFaultsOnTheLine, ASilentCommandStillStopsTheStream)
{
    Device device(With({"silent:N"}));
    EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
    EXPECT_EQ(device.Ask("N\r\n", 1500ms), kLine1);
    EXPECT_EQ(device.Take(1h), "");
}

TEST(InstrumentFaultsOnTheLine, LateAcknowledgement)
{
    Device device(With({"late-ack"}));
    EXPECT_EQ(device.Ask("N\r\n", 0s), "");
    EXPECT_EQ(device.Take(599ms), "");
    EXPECT_EQ(device.Take(600ms), "AN\r\n");
    EXPECT_EQ(device.Ask("D\r\n", 1s), "");
    EXPECT_EQ(device.Take(1600ms), "AD\r\n");
    EXPECT_EQ(device.Take(2599ms), "");
    EXPECT_EQ(device.Take(2600ms), "09:30:02;0000006;000.008;1.3\r\n");
}

TEST(InstrumentFaultsOnTheLine, LateForOneCommandOnlyAndInOrderStill)
{
    Device device(With({"late-ack:250,D"}));
    EXPECT_EQ(device.Ask("N\r\n", 0s), "AN\r\n");
    EXPECT_EQ(device.Ask("D\r\nN\r\n", 1s), "");
    EXPECT_EQ(device.Take(1249ms), "");
    EXPECT_EQ(device.Take(1250ms), "AD\r\nAN\r\n"); // nothing overtakes on a line
    EXPECT_EQ(device.Take(1h), "");                 // and N came after D
}

TEST(InstrumentFaultsOnTheLine, SplitLinesPause)
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

TEST(InstrumentFaultsOnTheLine, SplitAnswersPauseToo)
{
    Device device(With({"split:3,100"}));
    EXPECT_EQ(device.Ask("N\r\n", 0s), "AN\r");
    EXPECT_EQ(device.Take(100ms), "\n");
}

TEST(InstrumentFaultsOnTheLine, NothingIsSplitAtItsVeryEnd)
{
    Device device(With({"split:4"}));
    EXPECT_EQ(device.Ask("N\r\n", 0s), "AN\r\n");
    EXPECT_EQ(device.NextDue(), std::nullopt);
}

TEST(InstrumentFaultsOnTheLine, SplitLinesLongerThanTheIntervalKeepTheirOrderAndTheirPace)
{
    Device device(With({"split:9"}, 50), {0}); // a line each 20 ms, a pause of 40 ms
    EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
    std::string lines;
    for (Time now = 0s; now <= 2040ms; now += 5ms)
        lines += device.Take(now);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 100); // line 100 is due at 2000 ms
    EXPECT_TRUE(
        lines.starts_with("09:30:01;0000000;000.000;1.3\r\n09:30:02;0000000;000.000;1.3\r\n09:30:03;"));
}

TEST(InstrumentFaultsOnTheLine, GarbageStandsBeforeTheFirstLineOnly)
{
    std::string seen[2];
    for (std::string& garbage : seen) {
        Device device(With({"garbage:200"}));
        EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
        const std::string answer = device.Take(1s);
        ASSERT_EQ(answer.size(), 200 + kLine1.size());
        EXPECT_TRUE(answer.ends_with(kLine1));
        garbage = answer.substr(0, 200);
        EXPECT_EQ(garbage.find_first_of("\r\n"), std::string::npos);
        EXPECT_EQ(device.Take(2s), kLine2);
        EXPECT_EQ(device.Ask("D\r\n", 2s), "AD\r\n");
        EXPECT_EQ(device.Take(3s).size(), 200 + kLine1.size());
    }
    EXPECT_EQ(seen[0], seen[1]);
    EXPECT_NE(std::count(seen[0].begin(), seen[0].end(), seen[0][0]), 200);
}

TEST(InstrumentFaultsOnTheLine, ChatterLeavesNoQuietMomentAndStopsForNothing)
{
    Device device(With({"chatter"}));
    std::string all;
    for (Time now = 0s; now <= 3s; now += 10ms) {
        if (now == 1s)
            device.Receive("N\r\n", now);
        const std::string chunk = device.Take(now);
        EXPECT_FALSE(chunk.empty()) << now.count();
        all += chunk;
    }
    EXPECT_NE(all.find("AN\r\n"), std::string::npos);
    all.erase(all.find("AN\r\n"), 4);
    EXPECT_EQ(all.find_first_of("\r\n"), std::string::npos);
}

TEST(InstrumentFaultsOnTheLine, HangsUpAfterItsLastLine)
{
    Device device(With({"hang-up:2", "split:20"}));
    EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
    EXPECT_EQ(device.Take(1500ms), kLine1);
    EXPECT_EQ(device.Take(2s), kLine2.substr(0, 20));
    EXPECT_FALSE(device.HungUp(2s)); // the rest of the line is still to come
    EXPECT_EQ(device.Take(2040ms), kLine2.substr(20));
    EXPECT_TRUE(device.HungUp(2040ms));
    EXPECT_EQ(device.Ask("N\r\nD\r\n", 3s), "");
    EXPECT_EQ(device.NextDue(), std::nullopt);
    EXPECT_EQ(device.Take(1h), "");
}

TEST(InstrumentFaultsOnTheLine, HangsUpNoSoonerThanWhatIsStillToBeSent)
{
    Device device(With({"hang-up:1", "late-ack:5000,N"}));
    EXPECT_EQ(device.Ask("N\r\nD\r\n", 0s), "");
    EXPECT_EQ(device.Take(4999ms), "");
    EXPECT_FALSE(device.HungUp(4999ms));
    EXPECT_EQ(device.Take(5s), "AN\r\nAD\r\n" + kLine1);
    EXPECT_TRUE(device.HungUp(5s));
}

TEST(InstrumentFaultsOnTheLine, HangUpCountsTheLinesSincePowerOn)
{
    Device device(With({"hang-up:3", "chatter"}));
    (void) device.Ask("D\r\n", 0s);
    (void) device.Take(2500ms);
    (void) device.Ask("D\r\n", 2500ms);
    (void) device.Take(3499ms);
    EXPECT_FALSE(device.HungUp(3499ms));
    (void) device.Take(3500ms);
    EXPECT_TRUE(device.HungUp(3500ms));
    EXPECT_EQ(device.Take(1h), "") << "a device that is gone does not chatter";
}

} // namespace
} // namespace quorvane
