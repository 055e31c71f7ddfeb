#include "tests/simulator/SimulatedDevice.h"
#include "tests/support/InstrumentVectors.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;

InstrumentSetup AtVectorClock(double speed = 1)
{
    InstrumentSetup setup = With({}, speed);
    setup.clockAtPowerOn = kVectorClock;
    return setup;
}

TEST(InstrumentMemory, AnswersRecordedRequests)
{
    for (const Exchange& exchange : RecordedExchanges())
        EXPECT_EQ(Device(AtVectorClock()).Ask(exchange.request, 0s), exchange.answer) << exchange.what;
}

TEST(InstrumentMemory, KeepsTheLastProgramAsItCame)
{
    Device device;
    EXPECT_EQ(device.StoredProgram(), "");
    for (const ProgramVector& vector : kProgramVectors) {
        (void) device.Ask(vector.exchange.request, 0s);
        EXPECT_EQ(device.StoredProgram(), vector.exchange.parameters);
    }
}

TEST(InstrumentMemory, TheClockRunsOnFromWhereItWasSet)
{
    for (const ClockVector& vector : kClockVectors) {
        Device device;
        EXPECT_EQ(device.Ask(vector.exchange.request, 700ms), vector.exchange.answer);
        EXPECT_EQ(device.Ask("M\r\n", 1699ms), "AM\r\n" + std::string(vector.record)) << vector.exchange.what;
    }

    // Three times as fast: a second of its own is 333333333.3 ns, and a time of whole nanoseconds hits none.
    Device device(AtVectorClock(3));
    EXPECT_EQ(device.Ask("M\r\n", 332ms), "AM\r\n2024/05/01 09:30:00\r\n");
    EXPECT_EQ(device.Ask("M\r\n", 333333333ns), "AM\r\n2024/05/01 09:30:01\r\n");
    EXPECT_EQ(device.Ask("T2024;02;29;23;59;58\r\n", 500ms), "AT\r\n");
    EXPECT_EQ(device.Ask("M\r\n", 832ms), "AM\r\n2024/02/29 23:59:58\r\n");
    EXPECT_EQ(device.Ask("M\r\n", 500ms + 666666667ns), "AM\r\n2024/03/01 00:00:00\r\n");
    // Twelve hours later, 36 by its own clock.
    EXPECT_EQ(device.Ask("M\r\n", 12h + 500ms), "AM\r\n2024/03/02 11:59:58\r\n");
    EXPECT_EQ(device.Ask("D\r\n", 12h + 500ms), "AD\r\n");
    EXPECT_EQ(device.Take(12h + 834ms), "11:59:59;0000006;000.008;1.3\r\n");
}

TEST(InstrumentMemory, TheFactorChangesCountsAndTheFourthField)
{
    for (const bool threeFields : {false, true}) {
        InstrumentSetup setup = With({});
        setup.threeFields = threeFields;
        Device device(setup);
        EXPECT_EQ(device.Ask("E2.5\r\nD\r\n", 0s), "AE\r\nAD\r\n");
        // 0.008/0.0025 = 3.2
        EXPECT_EQ(device.Take(1s),
                  threeFields ? "09:30:01;0000003;000.008\r\n" : "09:30:01;0000003;000.008;2.5\r\n");
    }
}

TEST(InstrumentMemory, SaysNothingToAnythingElseAndChangesNothing)
{
    const std::string_view rows[] = {
        "M1",
        "T2024;05;01;24;30;00", // half past noon, as a 12-hour clock is read
        "T2024;05;01;09;60;00",
        "T2024;05;01;09;30;60",
        "T2023;02;29;09;30;00",
        "T0000;00;00;09;30;00",
        "T2024/05/01;09:30:00",
        "T2024;05;01;09;30;+1",
        "T2024;05;01;09;30;00;",
        "E0.0",
        "E1,2",
        "E1.25",
        "E-.1",
        "P",
        "P09:30:00;01:30;00120",
        "P2024/05/01;09:30:00;01:30;0120",
        "P2024/05/01;09:30:00;01:30;00120 ",
        "P2024/05/01;09:30:00;00:60;00120",
        "P;24:00:00;01:30;00120",
        "P0000/05/01;09:30:00;01:30;00120",
        "P00/00/00;09:30:00;01:30;00120",
    };
    for (const std::string_view request : rows) {
        SCOPED_TRACE(request);
        Device device(AtVectorClock());
        (void) device.Ask("D\r\n", 0s);
        EXPECT_EQ(device.Ask(std::string(request) + "\r\n", 500ms), "");
        EXPECT_EQ(device.Take(2s), ""); // the stream is over all the same
        EXPECT_EQ(device.StoredProgram(), "");
        EXPECT_EQ(device.Ask("M\r\nD\r\n", 2s), "AM\r\n2024/05/01 09:30:02\r\nAD\r\n");
        EXPECT_EQ(device.Take(3s), "09:30:03;0000006;000.008;1.3\r\n");
    }
}

} // namespace
} // namespace quorvane
