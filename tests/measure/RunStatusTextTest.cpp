#include "measure/RunStatusText.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

TEST(RunStatusTextTest, SaysWhatTheRunIsDoing)
{
    const StringTable table(TableLanguage::English);
    ApplicationState state;
    const Texts texts(table, state);
    state.RunMode = true;
    state.RsPort = "COM3";
    RunStatus status;
    status.taken = 3;
    status.planned = 3600;
    status.left = 3597s;
    status.linesBehind = 1;

    EXPECT_EQ(StatusText(state, RunState::Idle, status, texts).sample, ""); // no run yet
    EXPECT_EQ(StatusText(state, RunState::Idle, status, texts).state, "Ready");
    EXPECT_EQ(StatusText(state, RunState::Starting, status, texts).state, "Connecting to the instrument...");
    EXPECT_EQ(StatusText(state, RunState::Stopping, status, texts).state, "Stopping...");

    RunStatusText text = StatusText(state, RunState::Measuring, status, texts);
    EXPECT_EQ(text.state, "Measuring");
    EXPECT_EQ(text.mode, "Instrument");
    EXPECT_EQ(text.port, "COM3");
    EXPECT_EQ(StatusText(state, RunState::Idle, status, texts, false).port, "COM3 (not connected)");
    EXPECT_EQ(StatusText(state, RunState::Measuring, status, texts, false).port, "COM3")
        << "its adapter is another port by now";
    EXPECT_EQ(text.sample, "Sample 3 of 3600");
    EXPECT_EQ(text.timeLeft, "Time left 59:57");
    EXPECT_EQ(text.behind, ""); // one line is the one that is being taken

    status.linesBehind = 2;
    status.portLost = true;
    status.portLostSince = std::chrono::local_days(std::chrono::year(2024) / 5 / 1) + 9h + 23min + 45s;
    status.left = 10h + 5s;
    text = StatusText(state, RunState::Measuring, status, texts);
    EXPECT_EQ(text.state, "Port lost since 09:23:45; waiting for COM3");
    EXPECT_EQ(StatusText(state, RunState::Measuring, status, texts, false).port, "COM3 (not connected)");
    EXPECT_EQ(text.timeLeft, "Time left 10:00:05");
    EXPECT_EQ(text.behind, "2 lines waiting");

    state.RunMode = false;
    state.DataPresent = 1;
    status.linesBehind = 0;
    text = StatusText(state, RunState::Idle, status, texts);
    EXPECT_EQ(text.mode, "SIMULATED");
    EXPECT_EQ(text.port, "");
    EXPECT_EQ(text.sample, "Sample 3 of 3600");
    EXPECT_EQ(text.timeLeft, "");
}

TEST(RunStatusTextTest, TellsHowOldTheNewestReadingIs)
{
    struct Row {
        std::string_view what;
        int taken, interval;
        std::chrono::milliseconds age;
        std::optional<std::chrono::milliseconds> silence;
        std::string_view text;
        bool stale;
        bool portLost = false;
    };
    const Row rows[] = {
        {"fresh", 1, 1, 999ms, {}, "Last reading 0 s ago", false},
        {"two intervals", 1, 1, 2000ms, 1100ms, "Last reading 2 s ago", false},
        {"more", 1, 1, 2001ms, 1101ms, "Last reading 2 s ago", true},
        {"a minute less a bit", 1, 30, 59999ms, {}, "Last reading 59 s ago", false},
        {"a minute", 1, 30, 60000ms, {}, "Last reading 01:00 ago", false},
        {"long intervals", 1, 900, 1799s, {}, "Last reading 29:59 ago", false},
        {"simulated, and held up: never no data", 1, 1, 2h, {}, "Last reading 2:00:00 ago", true},
        {"waiting for 20 s less a bit", 1, 1, 20900ms, 19999ms, "Last reading 20 s ago", true},
        {"waiting for 20 s", 1, 1, 20900ms, 20000ms, "No data from the instrument", true},
        {"and the port is lost, which is told elsewhere", 1, 1, 20900ms, 20000ms, "Last reading 20 s ago",
         true, true},
        {"waiting for 20 s, but not two intervals", 1, 60, 119s, 59s, "Last reading 01:59 ago", false},
        {"first reading: nothing to tell the age of", 0, 1, 3s, 2s, "", true},
        {"no first reading", 0, 1, 21s, 20s, "No data from the instrument", true},
    };
    const StringTable table(TableLanguage::English);
    ApplicationState state;
    const Texts texts(table, state);
    for (const Row& row : rows) {
        state.SamplingSeconds = static_cast<std::int16_t>(row.interval);
        RunStatus status;
        status.taken = row.taken;
        status.portLost = row.portLost;
        status.askedAt = std::chrono::steady_clock::time_point(100h);
        status.noReadingSince = status.askedAt - row.age;
        if (row.silence)
            status.silentSince = status.askedAt - *row.silence;
        const RunStatusText text = StatusText(state, RunState::Measuring, status, texts);
        EXPECT_EQ(text.age, row.text) << row.what;
        EXPECT_EQ(text.stale, row.stale) << row.what;
    }
}

} // namespace
} // namespace quorvane
