#include "tests/support/RunWorld.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

/// What has to hold after any run, however it ended.
void ExpectTidy(RunWorld& with)
{
    EXPECT_EQ(with.run.State(), RunState::Idle);
    EXPECT_EQ(with.texts[with.run.Command1CaptionId()], "Measure Start");
    EXPECT_FALSE(with.port.IsOpen());
    EXPECT_FALSE(with.timer1.Enabled());
    EXPECT_FALSE(with.timer2.Enabled());
    EXPECT_FALSE(with.timer3.Enabled());
    EXPECT_EQ(with.state.SampleCount, with.run.Status().taken);
    EXPECT_EQ(with.listener.samples.size(), static_cast<std::size_t>(with.state.SampleCount));
    for (int i = 1; i <= with.state.SampleCount; ++i)
        EXPECT_FALSE(with.arrays.ReplyLine[static_cast<std::size_t>(i)].empty()) << "an empty row " << i;
    EXPECT_FALSE(with.run.Status().silentSince);
}

// ---- silence --------------------------------------------------------------------------------------------

TEST(MeasurementRunFaults, WaitsForDataWithoutEnd)
{
    struct Row {
        std::chrono::seconds silence;
        int counted;
    };
    // The wait begins 0.9 s behind a reading, and the count ends once it exceeds 20.
    for (const Row& row : {Row{5s, 4}, Row{19s, 18}, Row{20s, 19}, Row{21s, 20}, Row{22s, 21}, Row{1h, 21}}) {
        SCOPED_TRACE(row.silence.count());
        RunWorld with;
        with.lines = {RunWorld::Line(1)};
        with.listener.onSample = [&](int sample) {
            const long pumps = with.world.Pumps();
            if (sample == 1)
                with.world.After(row.silence, [&with, &row, pumps] {
                    EXPECT_EQ(with.timer1.Interval(), 1000ms);
                    EXPECT_EQ(with.state.WaitSeconds, row.counted);
                    EXPECT_EQ(with.timer1.Enabled(), row.counted <= 20);
                    EXPECT_GT(with.world.SteadyNow() - with.run.Status().silentSince.value(),
                              row.silence - 1s);
                    EXPECT_LE(with.world.Pumps() - pumps, 2 * (row.silence / 20ms))
                        << "a look each 20 ms at most, in run and wait";
                    with.port.Arrive(RunWorld::Line(2));
                });
            if (sample == 2)
                with.world.After(5s, [&with] {
                    EXPECT_TRUE(with.timer1.Enabled()) << "the next wait counts from 0";
                    EXPECT_EQ(with.state.WaitSeconds, 4);
                    with.port.Arrive(RunWorld::Line(3));
                });
        };
        EXPECT_EQ(with.run.Start(), RunResult::Completed);
        EXPECT_EQ(with.run.Status().taken, 3);
        EXPECT_EQ(with.arrays.ReplyLine[2], RunWorld::Line(2));
        EXPECT_TRUE(with.prompts.messages.empty());
        EXPECT_EQ(with.LoggedErrors(), "");
        ExpectTidy(with);
    }
}

TEST(MeasurementRunFaults, StopsQuietlyDuringTheWait)
{
    RunWorld with;
    with.lines = {RunWorld::Line(1), "09:30:02;00"};
    with.world.After(20s, [&] {
        EXPECT_EQ(with.state.SampleCount, 2);
        with.run.Stop();
        EXPECT_EQ(with.state.SampleCount, 1) << "at once";
    });
    EXPECT_EQ(with.run.Start(), RunResult::Stopped);
    EXPECT_EQ(with.state.SampleCount, 1);
    EXPECT_TRUE(with.prompts.messages.empty());
    EXPECT_EQ(with.LoggedErrors(), "");
    EXPECT_EQ(with.state.DataPresent, 1);
    ExpectTidy(with);
}

// ---- bad lines ------------------------------------------------------------------------------------------

TEST(MeasurementRunFaults, EndsWhenTheAcknowledgementIsNotSeen)
{
    RunWorld with;
    with.acknowledgement = "AX\r\n";
    with.GiveLines(3);
    EXPECT_EQ(with.run.Start(), RunResult::ReadFailed);
    ASSERT_EQ(with.Messages(), std::vector<std::string>{"RS232C ERROR."});
    EXPECT_EQ(with.prompts.messages[0].icon, Icon::None);
    EXPECT_EQ(with.prompts.messages[0].titleId, 101);
    const std::string logged = with.LoggedErrors();
    EXPECT_TRUE(logged.starts_with("D Command,AX\r\n09:30:01;0000012;001.250;1.2\r\n")) << logged;
    EXPECT_TRUE(logged.ends_with(", 1001\r\n")) << logged;
    EXPECT_EQ(with.state.SampleCount, 0);
    ExpectTidy(with);
}

TEST(MeasurementRunFaults, TakesAnAcknowledgementThatComesLateAndInPieces)
{
    const std::string acknowledgement = "AD\r\n";
    for (std::size_t split = 0; split <= acknowledgement.size(); ++split) {
        RunWorld with;
        with.acknowledgement = acknowledgement.substr(0, split);
        with.port.onOutput = [&, answer = with.port.onOutput](const std::string& text) {
            answer(text);
            if (text == "D\r\n")
                with.port.Deliver(1500ms, acknowledgement.substr(split));
        };
        with.interval = 2s;
        with.GiveLines(3);
        EXPECT_EQ(with.run.Start(), RunResult::Completed) << split;
        EXPECT_EQ(with.arrays.ReplyLine[1], RunWorld::Line(1)) << split;
    }
}

TEST(MeasurementRunFaults, EndsWhenALineStopsInTheMiddleOrPausesTooLong)
{
    const std::string line = RunWorld::Line(2);
    for (const bool rest : {false, true}) {
        RunWorld with;
        with.lines = {RunWorld::Line(1), line.substr(0, 28)};
        with.port.onOutput = [&, answer = with.port.onOutput](const std::string& text) {
            answer(text);
            if (text == "D\r\n" && rest)
                with.port.Deliver(2s + 130ms, line.substr(28));
        };
        with.prompts.whileOpen = [&] { // everything is done before the operator is told
            EXPECT_NE(with.LoggedErrors(), "");
            EXPECT_FALSE(with.timer2.Enabled() || with.timer3.Enabled());
            EXPECT_EQ(with.state.SampleCount, 1);
        };
        EXPECT_EQ(with.run.Start(), RunResult::ReadFailed);
        EXPECT_EQ(with.Messages(), std::vector<std::string>{"RS232C ERROR."});
        EXPECT_EQ(with.LoggedErrors(), "D Command Data Read," + line.substr(0, 28) + ", 101\r\n");
        EXPECT_EQ(with.arrays.MeasureTime[1], "09:30:01") << "the reading before it stays";
        EXPECT_EQ(with.state.DataPresent, 1);
        ExpectTidy(with);
    }
}

TEST(MeasurementRunFaults, TakesALineInPiecesAtEveryByteWithAnyShortPause)
{
    const std::string line = RunWorld::Line(2);
    for (const auto pause : {300us, 1000us, 16000us, 60000us, 95000us}) {
        for (std::size_t split = 0; split <= line.size(); ++split) {
            RunWorld with;
            with.state.TotalSamples = 2;
            with.lines = {RunWorld::Line(1), line.substr(0, split)};
            with.port.onOutput = [&with, &line, split, pause,
                                  answer = with.port.onOutput](const std::string& text) {
                answer(text);
                if (text == "D\r\n")
                    with.port.Deliver(2s + pause, line.substr(split));
            };
            EXPECT_EQ(with.run.Start(), RunResult::Completed) << split << " " << pause.count();
            EXPECT_EQ(with.arrays.ReplyLine[2], line) << split;
        }
    }
}

/// Whatever the damage makes of its line, it is the only one, or the one that it has run into.
TEST(MeasurementRunFaults, ALostDoubledOrFlippedByteCostsNoOtherLine)
{
    const std::string line = RunWorld::Line(2);
    for (std::size_t at = 0; at < line.size(); ++at) {
        const auto place = static_cast<std::string::difference_type>(at);
        std::string lost = line;
        std::string doubled = line;
        std::string flipped = line;
        lost.erase(at, 1);
        doubled.insert(doubled.begin() + place, line[at]);
        flipped[at] = static_cast<char>(flipped[at] ^ 0x10);
        for (const std::string& damaged : {lost, doubled, flipped}) {
            SCOPED_TRACE(damaged);
            RunWorld with;
            with.state.TotalSamples = 5;
            with.lines = {RunWorld::Line(1), damaged, RunWorld::Line(3), RunWorld::Line(4),
                          RunWorld::Line(5)};
            with.world.After(30s, [&] { with.run.Stop(); }); // where two lines have become one
            const RunResult result = with.run.Start();
            const auto taken = static_cast<std::size_t>(with.state.SampleCount);
            // A line end that is broken pauses the line for a second in the middle of a reading, which ends a
            // run.
            const bool endBroken = at + 2 >= line.size() && damaged != doubled;
            if (endBroken && result == RunResult::ReadFailed) {
                EXPECT_EQ(taken, 1U);
                continue;
            }
            ASSERT_EQ(taken, 5U);
            EXPECT_EQ(with.arrays.ReplyLine[1], RunWorld::Line(1));
            EXPECT_EQ(with.arrays.ReplyLine[4], RunWorld::Line(4));
            EXPECT_EQ(with.arrays.ReplyLine[5], RunWorld::Line(5));
            EXPECT_TRUE(with.arrays.ReplyLine[3].ends_with(RunWorld::Line(3)));
        }
    }
}

TEST(MeasurementRunFaults, TakesWhatEndsLikeALineWhateverStandsInIt)
{
    RunWorld with;
    with.state.TotalSamples = 4;
    with.lines = {std::string("\x01\xFF garbage") + RunWorld::Line(1), "\r\n\r\n",
                  "09:30:02;000012;001.250;1.2\r\n",                // one byte dropped
                  RunWorld::Line(3), "AD\r\n" + RunWorld::Line(4)}; // an acknowledgement in front is left out
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    EXPECT_EQ(with.arrays.MeasureTime[1], "\x01\xFF garbage09:30:01");
    EXPECT_EQ(with.arrays.ReplyLine[2], "\r\n\r\n09:30:02;000012;001.250;1.2\r\n");
    EXPECT_EQ(with.arrays.ReplyLine[4], RunWorld::Line(4));
    EXPECT_EQ(with.arrays.Moment[2] - with.arrays.Moment[1], 0s) << "unreadable times stand still";
}

TEST(MeasurementRunFaults, AnInstrumentThatNeverPausesCanBeStopped)
{
    for (const bool stop : {true, false}) {
        RunWorld with;
        with.GiveLines(1);
        with.world.After(5s, [&] { with.port.endless = true; });
        int floodedPumps = 0;
        with.world.onPump = [&](long) {
            if (!with.port.endless || ++floodedPumps < 200) // of 1024 characters each
                return;
            with.port.endless = false; // or the stop exchange would wait for a quiet line
            if (stop)
                with.run.Stop();
        };
        EXPECT_EQ(with.run.Start(), stop ? RunResult::Stopped : RunResult::ReadFailed);
        EXPECT_EQ(with.run.Status().taken, 1);
        const std::string logged = with.LoggedErrors(); // by a read that failed, and by no other
        EXPECT_EQ(logged.starts_with("D Command Data Read,xxx"), !stop);
        EXPECT_LT(logged.size(), 65536U + 100) << "what is kept of an endless line is bounded";
    }
}

// ---- the plug -------------------------------------------------------------------------------------------

TEST(MeasurementRunFaults, ALostDeviceIsSilenceNotAnEnd)
{
    RunWorld with;
    with.GiveLines(2);
    with.port.onOutput = [&, answer = with.port.onOutput](const std::string& text) {
        answer(text);
        if (text == "D\r\n") {
            with.port.Deliver(2500ms, "09:30:03;0000");
            with.world.After(2600ms, [&] { with.port.Vanish(); });
        }
    };
    long readsAtLoss = -1;
    with.world.After(10s, [&] {
        EXPECT_TRUE(with.run.Status().portLost);
        readsAtLoss = with.port.reads;
    });
    with.world.After(1h, [&] {
        EXPECT_EQ(with.port.reads, readsAtLoss) << "a port that is gone is not read";
        with.run.Stop();
    });
    EXPECT_EQ(with.run.Start(), RunResult::Stopped);
    EXPECT_EQ(with.LoggedErrors(), "D Command Data Read,09:30:03;0000, 0\r\n") << "one record";
    EXPECT_TRUE(with.prompts.messages.empty());
    EXPECT_EQ(with.run.Status().taken, 2);
    EXPECT_EQ(with.port.sent.size(), 3U) << "no stop exchange without a port";
    EXPECT_LT(with.world.Elapsed(), 1h + 1s);
    ExpectTidy(with);
}

TEST(MeasurementRunFaults, LinesThatCameBeforeTheLossAreTaken)
{
    RunWorld with;
    with.state.TotalSamples = 10;
    with.port.onOutput = [&, answer = with.port.onOutput](const std::string& text) {
        answer(text);
        if (text == "D\r\n") {
            // Three lines at once, the last one of three fields: too few bytes for the threshold, and yet
            // whole.
            with.port.Deliver(1s, RunWorld::Line(1) + RunWorld::Line(2) + "09:30:03;0000012;001.250\r\n0");
            with.world.After(1100ms, [&] { with.port.Vanish(); });
        }
    };
    with.world.After(1min, [&] { with.run.Stop(); });
    EXPECT_EQ(with.run.Start(), RunResult::Stopped);
    EXPECT_EQ(with.arrays.ReplyLine[3], "09:30:03;0000012;001.250\r\n");
    EXPECT_EQ(with.run.Status().taken, 3);
    EXPECT_EQ(with.LoggedErrors(), "D Command Data Read,, 0\r\n");
    ExpectTidy(with);
}

TEST(MeasurementRunFaults, ALossBetweenReadingsIsNoticedThen)
{
    for (const std::string part : {"", "09:50:00;00"}) {
        RunWorld with;
        with.state.SamplingSeconds = 600;
        with.interval = 600s;
        with.GiveLines(1);
        with.world.After(699s, [&] { with.port.Arrive(part); });
        with.world.After(700s, [&] { with.port.Vanish(); });
        with.world.After(701s, [&] { EXPECT_FALSE(with.port.IsOpen()); });
        with.world.After(1000s, [&] { with.run.Stop(); });
        EXPECT_EQ(with.run.Start(), RunResult::Stopped);
        EXPECT_EQ(with.LoggedErrors(), "D Command Data Read," + part + ", 0\r\n");
        EXPECT_EQ(with.port.sent.size(), 3U) << "no stop exchange";
        ExpectTidy(with);
    }
}

TEST(MeasurementRunFaults, ALossInTheMiddleOfALineDropsItsPart)
{
    struct Row {
        std::string acknowledgement;
        std::vector<std::string> lines;
        std::int32_t sample; ///< that is awaited
        long reads;          ///< so many at least by then
        std::string logged;
    };
    const Row rows[] = {
        {"AD", {"09:30:01;0000012;001.250;1."}, 1, 10, "D Command Data Read,AD09:30:01;"},
        {"AD\r\n",
         {RunWorld::Line(1), RunWorld::Line(2).substr(0, 28)},
         2,
         65,
         "D Command Data Read,09:30:02;0000012;001.250;1.2, "},
    };
    for (const Row& row : rows) {
        RunWorld with;
        with.acknowledgement = row.acknowledgement;
        with.lines = row.lines;
        with.world.onPump = [&](long) {
            if (with.state.SampleCount == row.sample && with.port.inputLen == 1 && with.port.Waiting() == 0 &&
                with.port.reads > row.reads)
                with.port.Vanish();
        };
        with.world.After(1min, [&] { with.run.Stop(); });
        EXPECT_EQ(with.run.Start(), RunResult::Stopped);
        EXPECT_TRUE(with.LoggedErrors().starts_with(row.logged)) << with.LoggedErrors();
        EXPECT_GE(with.world.Elapsed(), 1min) << "the wait went on";
        EXPECT_EQ(with.run.Status().taken, row.sample - 1);
        EXPECT_TRUE(with.prompts.messages.empty());
        ExpectTidy(with);
    }
}

TEST(MeasurementRunFaults, ARequestThatIsNotTakenEndsTheRun)
{
    RunWorld with;
    with.port.onOutput = [&, answer = with.port.onOutput](const std::string& text) {
        answer(text);
        with.port.refuseOutput = with.port.sent.size() == 2; // the D request
    };
    with.prompts.whileOpen = [&] {
        EXPECT_EQ(with.state.DataPresent, 0) << "there is nothing to save while the box is open";
        with.port.refuseOutput = false;
    };
    EXPECT_EQ(with.run.Start(), RunResult::ReadFailed);
    EXPECT_EQ(with.Messages(), std::vector<std::string>{"RS232C ERROR."});
    EXPECT_EQ(with.LoggedErrors(), "D Command,, 0\r\n");
    ExpectTidy(with);
}

// ---- the end of a run -----------------------------------------------------------------------------------

TEST(MeasurementRunFaults, AFailedStopExchangeIsOnlyLogged)
{
    RunWorld with;
    with.GiveLines(3);
    with.listener.onSample = [&](int) { with.answersLinkChecks = false; };
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    EXPECT_EQ(with.LoggedErrors(), "N Command,, 101\r\n");
    EXPECT_TRUE(with.prompts.messages.empty());
    ExpectTidy(with);
}

TEST(MeasurementRunFaults, ASecondStopAbandonsTheStopExchange)
{
    RunWorld with;
    with.GiveLines(3);
    World::Time second{};
    with.listener.onSample = [&](int sample) {
        if (sample != 2)
            return;
        with.run.Stop();
        with.world.After(300ms, [&] {
            EXPECT_EQ(with.run.State(), RunState::Stopping);
            second = with.world.Elapsed();
            with.run.Stop();
        });
    };
    EXPECT_EQ(with.run.Start(), RunResult::Stopped);
    EXPECT_LE(with.world.Elapsed() - second, 20ms);
    EXPECT_EQ(with.LoggedErrors(), "");
    ExpectTidy(with);
}

TEST(MeasurementRunFaults, AMessageBoxThatHoldsTheLoopLosesNothing)
{
    for (const bool withInstrument : {true, false}) {
        RunWorld with;
        with.state.RunMode = withInstrument;
        with.state.TotalSamples = 5;
        with.GiveLines(20);
        bool shown = false;
        with.world.onPump = [&](long) {
            if (with.run.State() != RunState::Measuring || shown)
                return;
            shown = true; // a box that stays open for a minute, far beyond the planned end
            for (int i = 0; i < 600; ++i)
                static_cast<void>(with.world.Serve(100ms));
        };
        EXPECT_EQ(with.run.Start(), RunResult::Completed);
        EXPECT_EQ(with.listener.samples, (std::vector<int>{1, 2, 3, 4, 5}));
        ExpectTidy(with);
    }
}

// ---- anything, at any time ------------------------------------------------------------------------------

struct Interruption {
    std::string_view what;
    std::function<void(RunWorld&)> happen;
};

/// With `pulled` the adapter is pulled out behind the first line, and is back before the third.
void HappenAtEveryPump(const Interruption& interruption, bool pulled)
{
    const PortDescription adapter{"FTDI", "FT232R", "A1", "1-2", "1.0"};
    for (long k = 1;; ++k) {
        SCOPED_TRACE(std::string(interruption.what) + " at pump " + std::to_string(k) +
                     (pulled ? " of a run with a pull" : ""));
        RunWorld with = pulled ? RunWorld(adapter) : RunWorld();
        with.world.pumpLimit = 4000;
        with.state.TotalSamples = 2;
        with.GiveLines(10);
        with.port.onOutput = [&, answer = with.port.onOutput](const std::string& text) {
            answer(text);
            if (text != "D\r\n" || !pulled)
                return;
            with.world.After(1500ms, [&] { with.PullOut(); });
            with.world.After(2300ms, [&] { with.PlugIn(adapter); });
        };
        bool happened = false;
        with.world.onPump = [&](long pump) {
            if (pump == k && !happened) {
                happened = true;
                interruption.happen(with);
            }
        };
        const RunResult result = with.run.Start();
        if (!happened) {
            EXPECT_GT(k, 300) << "the sweep went through the whole run";
            EXPECT_EQ(result, RunResult::Completed);
            EXPECT_EQ(with.arrays.Gaps.size(), pulled ? 1U : 0U);
            break;
        }
        if (!RunTookPlace(result)) {
            EXPECT_TRUE(with.arrays.ReplyLine.empty());
            EXPECT_FALSE(with.port.IsOpen());
            EXPECT_EQ(with.run.State(), RunState::Idle);
            continue;
        }
        EXPECT_EQ(with.state.DataPresent, 1);
        ExpectTidy(with);
        if (result == RunResult::Completed) {
            EXPECT_EQ(with.run.Status().taken, 2);
        }
    }
}

TEST(MeasurementRunFaults, SurvivesAnythingAtAnyPump)
{
    const Interruption interruptions[] = {
        {"stop", [](RunWorld& with) { with.run.Stop(); }},
        {"two stops",
         [](RunWorld& with) {
             with.run.Stop();
             with.run.Stop();
         }},
        {"start", [](RunWorld& with) { EXPECT_EQ(with.run.Start(), RunResult::AlreadyRunning); }},
        {"close", [](RunWorld& with) { with.world.Close(); }},
        {"send", [](RunWorld& with) { EXPECT_FALSE(with.link.CheckInstrument()); }},
        {"hang-up",
         [](RunWorld& with) {
             with.port.Vanish();
             with.world.After(5s, [&with] { with.run.Stop(); });
         }},
        {"bytes", [](RunWorld& with) { with.port.Arrive("\x02noise"); }},
        {"alarm reset", [](RunWorld& with) { with.run.ResetAlarms(); }},
        {"a message box",
         [](RunWorld& with) {
             for (int i = 0; i < 30; ++i)
                 static_cast<void>(with.world.Serve(100ms));
         }},
    };
    for (const Interruption& interruption : interruptions) {
        HappenAtEveryPump(interruption, false);
        HappenAtEveryPump(interruption, true);
    }
}

} // namespace
} // namespace quorvane
