#include "simulator/SimulatedInstrument.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using Time = SimulatedInstrument::Time;
using Values = std::vector<double>;

constexpr LocalMoment kHalfPastNine{std::chrono::seconds(9 * 3600 + 30 * 60)};

/// Four readings with their lines as an instrument with factor 1.3 sends them from 09:30:00 on. Counts by
/// hand: 0.008/0.0013 = 6.15, 1.25/0.0013 = 961.54, 0.0325/0.0013 = 25 (and 0.0325 shows as 0.033).
const Values kValues = {0.008, 1.25, 0.0325, 0};
const std::string kLine1 = "09:30:01;0000006;000.008;1.3\r\n";
const std::string kLine2 = "09:30:02;0000962;001.250;1.3\r\n";
const std::string kLine3 = "09:30:03;0000025;000.033;1.3\r\n";
const std::string kLine4 = "09:30:04;0000000;000.000;1.3\r\n";

class Device : public SimulatedInstrument {
public:
    explicit Device(InstrumentSetup setup = {}, Values values = kValues, AtEnd atEnd = AtEnd::Repeat)
        : SimulatedInstrument(WithClock(std::move(setup)),
                              std::make_unique<RecordedReadings>(std::move(values), atEnd))
    {
    }
    std::string Ask(std::string_view bytes, Time now)
    {
        Receive(bytes, now);
        return Take(now);
    }

private:
    static InstrumentSetup WithClock(InstrumentSetup setup)
    {
        if (setup.clockAtPowerOn == LocalMoment{})
            setup.clockAtPowerOn = kHalfPastNine;
        return setup;
    }
};

InstrumentSetup With(std::initializer_list<std::string_view> faults, double speed = 1)
{
    InstrumentSetup setup;
    setup.speed = speed;
    for (const std::string_view text : faults)
        EXPECT_FALSE(ReadFault(text, setup.faults.emplace_back())) << text;
    return setup;
}

TEST(SimulatedInstrument, LinkCheckThenStream)
{
    Device device;
    EXPECT_EQ(device.NextDue(), std::nullopt);
    EXPECT_EQ(device.Ask("N\r\n", 0s), "AN\r\n");
    EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
    EXPECT_EQ(device.NextDue(), Time(1s));
    EXPECT_EQ(device.Take(1s - 1ns), "");
    EXPECT_EQ(device.Take(1s), kLine1);
    EXPECT_EQ(device.Take(1999ms), "");
    EXPECT_EQ(device.Take(3s), kLine2 + kLine3);
    EXPECT_EQ(device.Ask("N\r\n", 3500ms), "AN\r\n");
    EXPECT_EQ(device.NextDue(), std::nullopt);
    EXPECT_EQ(device.Take(1h), "");
}

TEST(SimulatedInstrument, CommandsMayArriveInAnyPieces)
{
    const struct {
        std::string_view what;
        std::vector<std::string> chunks;
        std::string answer;
    } rows[] = {
        {"several at once", {"N\r\nN\r\nD\r\n"}, "AN\r\nAN\r\nAD\r\n"},
        {"byte by byte", {"N", "\r", "\n", "D", "\r", "\n"}, "AN\r\nAD\r\n"},
        {"across the border", {"N\r\nD\r", "\nN"}, "AN\r\nAD\r\n"},
        {"empty lines are nothing", {"\r\n\r\nN\r\n"}, "AN\r\n"},
        {"only CR LF ends a command", {"N\nN\rN\r\n"}, ""},
        {"small letter", {"n\r\n"}, ""},
        {"unknown letter", {"X\r\n"}, ""},
        {"more than the letter", {"NN\r\nD1\r\n"}, ""},
        {"something before the letter", {" N\r\n"}, ""},
    };
    for (const auto& row : rows) {
        Device device;
        std::string answer;
        for (const std::string& chunk : row.chunks)
            answer += device.Ask(chunk, 0s);
        EXPECT_EQ(answer, row.answer) << row.what;
    }
}

TEST(SimulatedInstrument, NoiseWithoutLineEndIsForgotten)
{
    Device device;
    EXPECT_EQ(device.Ask(std::string(1000, 'x'), 0s), "");
    EXPECT_EQ(device.Ask("N\r\n", 0s), "AN\r\n");
}

TEST(SimulatedInstrument, EveryCommandStopsTheStreamAndNothingElseDoes)
{
    const struct {
        std::string bytes;
        bool stops;
    } rows[] = {{"N\r\n", true}, {"X\r\n", true}, {"T2026\r\n", true},
                {"\r\n", false}, {"N", false},    {"N\n", false}};
    for (const auto& row : rows) {
        Device device;
        EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
        EXPECT_EQ(device.Take(1s), kLine1);
        device.Receive(row.bytes, 1500ms);
        (void) device.Take(1500ms);
        EXPECT_EQ(device.Take(2s), row.stops ? "" : kLine2) << row.bytes;
    }
}

TEST(SimulatedInstrument, EachDStartsTheReadingsAndThePaceAnew)
{
    Device device;
    EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
    EXPECT_EQ(device.Take(2s), kLine1 + kLine2);
    EXPECT_EQ(device.Ask("D\r\n", 2700ms), "AD\r\n");
    EXPECT_EQ(device.Take(3699ms), "");
    EXPECT_EQ(device.Take(3700ms), "09:30:03;0000006;000.008;1.3\r\n");
    EXPECT_EQ(device.Take(4700ms), "09:30:04;0000962;001.250;1.3\r\n");
}

TEST(SimulatedInstrument, FieldsOfTheDataLine)
{
    const struct {
        std::string_view what;
        double conc, factor;
        bool threeFields;
        std::string_view fields;
    } rows[] = {
        {"four fields, 30 bytes", 1.25, 1.3, false, "0000962;001.250;1.3\r\n"},
        {"three fields, 26 bytes", 1.25, 1.3, true, "0000962;001.250\r\n"},
        {"halves go away from zero", 0.0005, 1.0, false, "0000001;000.001;1.0\r\n"},
        {"below the half", 0.00049, 1.0, false, "0000000;000.000;1.0\r\n"},
        {"decimal halves that binary cannot hold", 1.0005, 1.0, false, "0001001;001.001;1.0\r\n"},
        {"85.7/0.0013 = 65923.08", 85.7, 1.3, false, "0065923;085.700;1.3\r\n"},
        {"concentration full", 999.9996, 9.9, false, "0101010;999.999;9.9\r\n"},
        {"both full", 1e9, 0.1, false, "9999999;999.999;0.1\r\n"},
        {"count just full", 999.99994, 0.1, false, "9999999;999.999;0.1\r\n"},
    };
    for (const auto& row : rows) {
        InstrumentSetup setup;
        setup.factor = row.factor;
        setup.threeFields = row.threeFields;
        Device device(setup, {row.conc});
        device.Receive("D\r\n", 0s);
        const std::string answer = device.Take(1s);
        EXPECT_EQ(answer, "AD\r\n09:30:01;" + std::string(row.fields)) << row.what;
        EXPECT_EQ(answer.size() - 4, row.threeFields ? 26U : 30U) << row.what;
    }
}

TEST(SimulatedInstrument, ItsClockWrapsAtMidnight)
{
    InstrumentSetup setup;
    setup.clockAtPowerOn = LocalMoment(23h + 59min + 58s);
    Device device(setup, {0});
    device.Receive("D\r\n", 0s);
    EXPECT_EQ(device.Take(3s), "AD\r\n"
                               "23:59:59;0000000;000.000;1.3\r\n"
                               "00:00:00;0000000;000.000;1.3\r\n"
                               "00:00:01;0000000;000.000;1.3\r\n");
}

TEST(SimulatedInstrument, SpeedMovesClockAndLinesAlike)
{
    Device device(With({}, 50));
    (void) device.Ask("D\r\n", 2s); // 100 s of its own time after power-on
    EXPECT_EQ(device.NextDue(), Time(2020ms));
    EXPECT_EQ(device.Take(2040ms), "09:31:41;0000006;000.008;1.3\r\n"
                                   "09:31:42;0000962;001.250;1.3\r\n");
}

TEST(SimulatedInstrument, LinesNeverDriftAndSkipNoSecond)
{
    Device device(With({}, 7), {0}); // 142857142.857 ns from line to line
    (void) device.Ask("D\r\n", 0s);
    std::string lines;
    for (int i = 0; i < 7000; ++i)
        lines += device.Take(device.NextDue().value() + 3ms); // always a little late
    EXPECT_EQ(lines.size(), 7000U * 30);
    EXPECT_TRUE(lines.ends_with("11:26:40;0000000;000.000;1.3\r\n")); // 7000 s after 09:30:00
    EXPECT_EQ(device.NextDue(), Time(1000142857143));                 // 7001/7 s
}

TEST(SimulatedInstrument, HowOftenItIsAskedMakesNoDifference)
{
    const InstrumentSetup setup = With({"split:9", "garbage", "chatter", "late-ack:30"}, 20);
    Device seldom(setup);
    Device often(setup);
    for (Device* device : {&seldom, &often})
        device->Receive("D\r\n", 7ms);
    std::string pieces;
    for (Time now = 7ms; now <= 2s; now += 1ms)
        pieces += often.Take(now);
    EXPECT_EQ(seldom.Take(2s), pieces);
}

TEST(SimulatedInstrument, AfterTheLastReading)
{
    const struct {
        AtEnd atEnd;
        std::string thirdAndFourth;
    } rows[] = {
        {AtEnd::Repeat, "09:30:03;0000962;001.250;1.3\r\n09:30:04;0000962;001.250;1.3\r\n"},
        {AtEnd::Silence, ""},
        {AtEnd::Loop, "09:30:03;0000006;000.008;1.3\r\n09:30:04;0000962;001.250;1.3\r\n"},
    };
    for (const auto& row : rows) {
        Device device({}, {0.008, 1.25}, row.atEnd);
        EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
        EXPECT_EQ(device.Take(2s), kLine1 + kLine2);
        EXPECT_EQ(device.Take(4s), row.thirdAndFourth);
        EXPECT_EQ(device.NextDue().has_value(), row.atEnd != AtEnd::Silence);
        EXPECT_EQ(device.Ask("N\r\n", 5s - 1ms), "AN\r\n");
    }
}

TEST(SimulatedInstrument, WaitsWhenNobodyTakesWhatItSends)
{
    Device device(With({}, 1000), {0});
    (void) device.Ask("D\r\n", 0s);
    constexpr std::size_t kLines = 50000; // 1.5 MB
    std::string taken = device.Take(50s);
    EXPECT_GE(taken.size(), 1U << 20U);
    EXPECT_LT(taken.size(), (1U << 20U) + 30);
    EXPECT_LE(device.NextDue(), Time(50s));
    taken += device.Take(50s);
    EXPECT_EQ(taken.size(), kLines * 30);
    EXPECT_TRUE(taken.ends_with("23:23:20;0000000;000.000;1.3\r\n")); // 13 h 53 min 20 s later
}

/// What a whole exchange looks like with a fault: N at 0 s, D at 1 s, then everything until 4.5 s.
struct FaultRow {
    std::initializer_list<std::string_view> faults;
    std::string toN, toD, lines;
};

TEST(SimulatedInstrument, FaultsThatNeedNoTiming)
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

TEST(SimulatedInstrument, ASilentCommandStillStopsTheStream)
{
    Device device(With({"silent:N"}));
    EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
    EXPECT_EQ(device.Ask("N\r\n", 1500ms), kLine1);
    EXPECT_EQ(device.Take(1h), "");
}

TEST(SimulatedInstrument, LateAcknowledgement)
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

TEST(SimulatedInstrument, LateForOneCommandOnlyAndInOrderStill)
{
    Device device(With({"late-ack:250,D"}));
    EXPECT_EQ(device.Ask("N\r\n", 0s), "AN\r\n");
    EXPECT_EQ(device.Ask("D\r\nN\r\n", 1s), "");
    EXPECT_EQ(device.Take(1249ms), "");
    EXPECT_EQ(device.Take(1250ms), "AD\r\nAN\r\n"); // nothing overtakes on a line
    EXPECT_EQ(device.Take(1h), "");                 // and N came after D
}

TEST(SimulatedInstrument, SplitLinesPause)
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

TEST(SimulatedInstrument, SplitAnswersPauseToo)
{
    Device device(With({"split:3,100"}));
    EXPECT_EQ(device.Ask("N\r\n", 0s), "AN\r");
    EXPECT_EQ(device.Take(100ms), "\n");
}

TEST(SimulatedInstrument, SplitLinesLongerThanTheIntervalKeepTheirOrderAndTheirPace)
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

TEST(SimulatedInstrument, GarbageStandsBeforeTheFirstLineOnly)
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

TEST(SimulatedInstrument, ChatterLeavesNoQuietMomentAndStopsForNothing)
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

TEST(SimulatedInstrument, HangsUpAfterItsLastLine)
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

TEST(SimulatedInstrument, HangUpCountsTheLinesSincePowerOn)
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
