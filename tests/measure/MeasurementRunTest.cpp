#include "instrument/DateTimeText.h"
#include "tests/support/RunWorld.h"

#include <gtest/gtest.h>
#include <utility>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

TEST(MeasurementRun, TakesThePlannedReadingsFromTheInstrument)
{
    RunWorld with;
    with.lines = {"09:30:01;0000012;001.250;1.2\r\n", "09:30:02;0000020;003.000;1.2\r\n",
                  "09:30:03;-000001;-00.500;1.2\r\n"};
    EXPECT_EQ(with.run.Start(), RunResult::Completed);

    const MeasurementArrays& arrays = with.arrays;
    EXPECT_EQ(arrays.MeasureTime, (std::vector<std::string>{"", "09:30:01", "09:30:02", "09:30:03"}));
    EXPECT_EQ(arrays.CountValue, (std::vector<double>{0, 12, 20, 0}));
    EXPECT_EQ(arrays.ConcValue, (std::vector<double>{0, 1.25, 3, 0}));
    EXPECT_EQ(arrays.DerivedValueA, (std::vector<double>{0, 1.25, 2.125, 4.25 / 3}));
    EXPECT_EQ(arrays.DerivedValueB, (std::vector<double>{0, 1.25, 2.125, 4.25 / 3}));
    EXPECT_EQ(arrays.IntegratedCount, (std::vector<double>{0, 12, 32, 32}));
    EXPECT_EQ(arrays.IntegratedConc, (std::vector<double>{0, 1.25, 4.25, 4.25}));
    EXPECT_EQ(arrays.ExtraField[1], "1.2");
    EXPECT_EQ(arrays.Moment[3], std::chrono::local_days(std::chrono::year(2024) / 5 / 1) + 9h + 30min + 3s);
    EXPECT_EQ(arrays.ReplyLine[2], with.lines[1]) << "the line is kept whole";

    // Start exchange (two N), D, stop exchange (two N), and a second to settle.
    EXPECT_GE(with.world.Elapsed() - with.lastAnswer, 1s);
    EXPECT_EQ(with.port.sent, (std::vector<std::string>{"N\r\n", "N\r\n", "D\r\n", "N\r\n", "N\r\n"}));
    EXPECT_FALSE(with.port.IsOpen());
    EXPECT_EQ(with.state.SampleCount, 3);
    EXPECT_EQ(with.state.DataPresent, 1);
    EXPECT_EQ(with.state.DataSaved, 0);
    EXPECT_EQ(with.listener.samples, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(with.listener.states,
              (std::vector<RunState>{RunState::Preparing, RunState::Starting, RunState::Measuring,
                                     RunState::Stopping, RunState::Idle}));
    EXPECT_TRUE(with.prompts.messages.empty());
    EXPECT_EQ(with.LoggedErrors(), "");
}

TEST(MeasurementRun, SimulatesWithoutAnInstrument)
{
    RunWorld with;
    with.state.RunMode = false;
    with.state.TotalSamples = 12;
    with.nextRandom = 0.999;
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    EXPECT_TRUE(with.port.sent.empty());
    EXPECT_EQ(with.port.opened, 0);
    EXPECT_TRUE(with.arrays.Simulated);
    EXPECT_EQ(with.arrays.CountValue[1], 4);
    EXPECT_EQ(with.arrays.ConcValue[10], 3.996) << "below 4 for the first ten";
    EXPECT_EQ(with.arrays.ConcValue[11], 5.994) << "below 6 after that";
    EXPECT_EQ(with.arrays.ExtraField[12], "1.2");
    EXPECT_EQ(with.arrays.MeasureTime[1], "09:30:01");
    EXPECT_GE(with.world.Elapsed(), 12s);
    EXPECT_LE(with.world.Elapsed(), 12100ms);
}

TEST(MeasurementRun, PacesLongIntervals)
{
    RunWorld with;
    with.state.RunMode = false;
    with.state.SamplingSeconds = 150; // two ticks of a minute, then 30 s
    with.state.TotalSamples = 4;
    std::vector<World::Time> taken;
    with.listener.onSample = [&](int) { taken.push_back(with.world.Elapsed()); };
    with.run.Start();
    EXPECT_EQ(taken, (std::vector<World::Time>{150s, 300s, 450s, 600s}));
}

TEST(MeasurementRun, KeepsUpWithTheInstrument)
{
    RunWorld with;
    with.state.TotalSamples = 3600;
    with.GiveLines(29 * 60);
    with.lines.resize(3600, RunWorld::Line(1740));
    int mostBehind = 0;
    with.listener.onSample = [&](int) { mostBehind = std::max(mostBehind, with.run.Status().linesBehind); };
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    EXPECT_LE(mostBehind, 1);
    EXPECT_EQ(with.run.Status().taken, 3600);
}

TEST(MeasurementRun, KnowsHowManyLinesWait)
{
    RunWorld with;
    with.state.TotalSamples = 12;
    with.interval = 300ms; // three times as fast as the run takes them
    with.GiveLines(12);
    std::vector<int> behind;
    with.listener.onSample = [&](int) { behind.push_back(with.run.Status().linesBehind); };
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    EXPECT_EQ(with.arrays.MeasureTime[12], "09:30:12") << "they are all taken, in order";
    EXPECT_GE(*std::max_element(behind.begin(), behind.end()), 6);
    EXPECT_EQ(behind.back(), 0);
}

TEST(MeasurementRun, TakesALineOfThreeFieldsWhenTheNextOneArrives)
{
    RunWorld with;
    with.lines = {RunWorld::Line(1),
                  "09:30:02;0000012;001.250\r\n"}; // 26 bytes, fewer than the 28 that are waited for
    with.world.After(30s, [&] {
        EXPECT_EQ(with.run.Status().taken, 1);
        with.port.Arrive("0");
    });
    with.world.After(60s, [&] {
        EXPECT_EQ(with.run.Status().taken, 1) << "27";
        with.port.Arrive("9");
    });
    with.world.After(90s, [&] {
        EXPECT_EQ(with.run.Status().taken, 2) << "28";
        with.run.Stop();
    });
    EXPECT_EQ(with.run.Start(), RunResult::Stopped);
    EXPECT_EQ(with.arrays.ExtraField[2], "");
    EXPECT_EQ(with.arrays.ConcValue[2], 1.25);
}

TEST(MeasurementRun, LightsLampsUntilTheResetOrTheNextRun)
{
    RunWorld with;
    with.state.CAlarm = with.state.StelAlarm = with.state.TwaAlarm = 2;
    with.lines = {RunWorld::Line(1, "001.000"), RunWorld::Line(2, "002.000"), RunWorld::Line(3, "000.000")};
    with.run.ResetAlarms(); // before any reading: nothing
    with.run.Start();
    EXPECT_EQ(with.listener.lit, std::vector<Lamp>{Lamp::Ceiling}) << "once, although it stays lit";
    EXPECT_TRUE(with.run.Lamps().ceiling);
    with.run.ResetAlarms();
    EXPECT_FALSE(with.run.Lamps().ceiling);

    with.state.DataSaved = 1;
    with.run.Start();
    EXPECT_TRUE(with.run.Lamps().ceiling);
    with.state.DataSaved = 1;
    with.lines = {RunWorld::Line(1), RunWorld::Line(2), RunWorld::Line(3)};
    with.run.Start();
    EXPECT_FALSE(with.run.Lamps().ceiling) << "a start puts them out";
}

/// A run of one reading a minute from 09:31 on, with an excursion above the TWA limit each 100 minutes.
void GiveExcursions(RunWorld& with)
{
    with.state.SamplingSeconds = 60;
    with.state.TotalSamples = 1000;
    with.state.TwaAlarm = 2;
    with.interval = 61s; // so that each line is waited for
    for (int minute = 0; minute < 1000; ++minute) {
        const LocalMoment time = with.world.Now() + std::chrono::minutes(1 + minute);
        with.lines.push_back(InstrumentTimeText(time) + ";0000012;" +
                             (minute % 100 < 20 ? "009.000" : "000.000") + ";1.2\r\n");
    }
}

TEST(MeasurementRun, ResetDuringTheWaitForALineCountsFromTheReadingBefore)
{
    // The short-term average of 15 readings exceeds 2 from the fourth high one on: excursions begin with
    // readings 16 (the first 15 minutes over), 104, 204, 304 ... A span that begins with reading r lasts to
    // reading r + 480.
    struct Row {
        int resetAfter;
        std::size_t lit; ///< the reading that lights the STEL lamp
    };
    // After 324: five begin in 324 to 804, the fifth with 804, exactly eight hours on. After 323 the span is
    // over with 804: that one begins in it, is counted and forgotten, and 904 is the first of the next span.
    for (const Row& row : {Row{324, 804}, Row{323, 0}}) {
        RunWorld with;
        GiveExcursions(with);
        bool resetDone = false;
        int held = 0;
        with.world.onPump = [&](long) {
            const RunStatus status = with.run.Status();
            if (std::exchange(held, status.taken) < status.taken)
                static_cast<void>(with.world.Serve(59s)); // most of the minute at once
            if (status.silentSince && !resetDone && status.taken == row.resetAfter) {
                resetDone = true;
                with.run.ResetAlarms();
            }
        };
        std::size_t lit = 0;
        with.listener.onSample = [&](int sample) {
            if (with.run.Lamps().stel && lit == 0 && resetDone)
                lit = static_cast<std::size_t>(sample);
        };
        with.run.Start();
        EXPECT_TRUE(resetDone);
        EXPECT_EQ(lit, row.lit) << "reset after " << row.resetAfter;
    }
}

TEST(MeasurementRun, ASecondRunBeginsAfresh)
{
    RunWorld with;
    with.GiveLines(3);
    with.linkAnswer = "AN\r\nrubbish"; // must not stand before the acknowledgement
    ASSERT_EQ(with.run.Start(), RunResult::Completed);
    with.state.DataSaved = 1;
    with.listener.onSample = [&](int) {
        EXPECT_EQ(with.state.DataPresent, 0);
        EXPECT_EQ(with.listener.cleared, 2);
    };
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    EXPECT_EQ(with.state.SampleCount, 3);

    EXPECT_FALSE(with.arrays.Simulated);

    with.listener.onSample = nullptr;
    with.state.DataSaved = 1;
    with.acknowledgement = "AX\r\n"; // is awaited again
    EXPECT_EQ(with.run.Start(), RunResult::ReadFailed);
    EXPECT_EQ(with.LoggedErrors().substr(0, 10), "D Command,");

    with.state.RunMode = false;
    with.state.SamplingSeconds = 150;
    with.world.After(70s, [&] { with.run.Stop(); }); // with one minute tick counted
    with.state.DataSaved = 1;
    EXPECT_EQ(with.run.Start(), RunResult::Stopped);
    const World::Time start = with.world.Elapsed();
    with.state.DataSaved = 1;
    with.state.TotalSamples = 1;
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    EXPECT_GE(with.world.Elapsed() - start, 150s);
}

TEST(MeasurementRun, WhoeverHearsOfTheLampsGoingOutFindsNoReading)
{
    RunWorld with;
    with.state.CAlarm = with.state.StelAlarm = with.state.TwaAlarm = 1;
    with.GiveLines(3);
    ASSERT_EQ(with.run.Start(), RunResult::Completed);
    with.state.DataSaved = 1;
    with.state.TotalSamples = 1; // fewer rows than before
    with.listener.onLampOut = [&] {
        EXPECT_EQ(with.state.SampleCount, 0);
        with.run.ResetAlarms();
    };
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
}

TEST(MeasurementRun, GoesOnOverMidnight)
{
    RunWorld with(std::chrono::local_days(std::chrono::year(2024) / 2 / 28) + 23h + 59min + 57s);
    with.state.TotalSamples = 4;
    with.lines = {"23:59:59;0000012;001.250;1.2\r\n", "00:00:00;0000012;001.250;1.2\r\n",
                  "00:00:01;0000012;001.250;1.2\r\n", "00:00:02;0000012;001.250;1.2\r\n"};
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    for (std::size_t i = 2; i <= 4; ++i)
        EXPECT_EQ(with.arrays.Moment[i] - with.arrays.Moment[i - 1], 1s) << i;
    EXPECT_TRUE(with.listener.lit.empty());
    EXPECT_EQ(with.run.Date().time_since_epoch(),
              std::chrono::local_days(std::chrono::year(2024) / 2 / 29).time_since_epoch());
}

} // namespace
} // namespace quorvane
