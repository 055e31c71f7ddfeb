#include "tests/simulator/SimulatedDevice.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using Time = SimulatedInstrument::Time;

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

} // namespace
} // namespace quorvane
