#include "tests/simulator/SimulatedDevice.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using Time = SimulatedInstrument::Time;

TEST(SimulatedInstrument, EachDStartsTheReadingsAndThePaceAnew)
{
    Device device;
    EXPECT_EQ(device.Ask("N\r\n", 0s), "AN\r\n");
    EXPECT_EQ(device.NextDue(), std::nullopt);
    EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
    EXPECT_EQ(device.NextDue(), Time(1s));
    EXPECT_EQ(device.Take(1s - 1ns), "");
    EXPECT_EQ(device.Take(1s), kLine1);
    EXPECT_EQ(device.Take(3s), kLine2 + kLine3);
    EXPECT_EQ(device.Ask("D\r\n", 3700ms), "AD\r\n");
    EXPECT_EQ(device.Take(4699ms), "");
    EXPECT_EQ(device.Take(5700ms), "09:30:04;0000006;000.008;1.3\r\n09:30:05;0000962;001.250;1.3\r\n");
}

TEST(SimulatedInstrument, CommandsMayArriveInAnyPieces)
{
    struct Row {
        std::string_view what;
        std::vector<std::string> chunks;
        std::string answer;
    };
    const Row rows[] = {
        {"byte by byte", {"N", "\r", "\n", "D", "\r", "\n"}, "AN\r\nAD\r\n"},
        {"empty lines are nothing", {"\r\n\r\nN\r\n"}, "AN\r\n"},
        {"only CR LF ends a command", {"N\nN\rN\r\n"}, ""},
        {"small and unknown letters", {"n\r\nX\r\n"}, ""},
        {"more than the letter", {"NN\r\n N\r\nD1\r\n"}, ""},
        {"noise without a line end is forgotten", {std::string(1000, 'x'), "N\r\n"}, "AN\r\n"},
    };
    for (const Row& row : rows) {
        Device device;
        std::string answer;
        for (const std::string& chunk : row.chunks)
            answer += device.Ask(chunk, 0s);
        EXPECT_EQ(answer, row.answer) << row.what;
    }
}

TEST(SimulatedInstrument, EveryCommandStopsTheStreamAndNothingElseDoes)
{
    for (const std::string bytes : {"N\r\n", "X\r\n", "\r\n", "N"}) {
        Device device(With({"silent:N"}));
        EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
        EXPECT_EQ(device.Ask(bytes, 1500ms), kLine1);
        EXPECT_EQ(device.Take(2s), bytes.size() == 3 ? "" : kLine2) << bytes;
    }
}

TEST(SimulatedInstrument, FieldsOfTheDataLine)
{
    struct Row {
        std::string_view what;
        double conc, factor;
        bool threeFields;
        std::string fields;
    };
    const Row rows[] = {
        {"three fields, 26 bytes", 1.25, 1.3, true, "0000962;001.250\r\n"},
        {"halves go away from zero", 0.0005, 1.0, false, "0000001;000.001;1.0\r\n"},
        {"85.7/0.0013 = 65923.08", 85.7, 1.3, false, "0065923;085.700;1.3\r\n"},
        {"concentration full", 999.9996, 9.9, false, "0101010;999.999;9.9\r\n"},
    };
    for (const Row& row : rows) {
        InstrumentSetup setup;
        setup.clockAtPowerOn = LocalMoment(23h + 59min + 59s);
        setup.factor = row.factor;
        setup.threeFields = row.threeFields;
        Device device(setup, {row.conc});
        EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
        EXPECT_EQ(device.Take(1s), "00:00:00;" + row.fields) << row.what;
    }
}

TEST(SimulatedInstrument, LinesNeverDriftAndSkipNoSecondAtAnySpeed)
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

TEST(SimulatedInstrument, AfterTheLastReading)
{
    struct Row {
        AtEnd what;
        std::string thirdAndFourth;
    };
    const Row rows[] = {
        {AtEnd::Repeat, "09:30:03;0000962;001.250;1.3\r\n09:30:04;0000962;001.250;1.3\r\n"},
        {AtEnd::Silence, ""},
        {AtEnd::Loop, "09:30:03;0000006;000.008;1.3\r\n09:30:04;0000962;001.250;1.3\r\n"},
    };
    for (const Row& row : rows) {
        Device device(With({}), {0.008, 1.25}, row.what);
        EXPECT_EQ(device.Ask("D\r\n", 0s), "AD\r\n");
        EXPECT_EQ(device.Take(2s), kLine1 + kLine2);
        EXPECT_EQ(device.Take(4s), row.thirdAndFourth);
        EXPECT_EQ(device.NextDue().has_value(), row.what != AtEnd::Silence);
    }
}

} // namespace
} // namespace quorvane
