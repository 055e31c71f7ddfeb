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
    EXPECT_EQ(text.sample, "Sample 3 of 3600");
    EXPECT_EQ(text.timeLeft, "Time left 59:57");
    EXPECT_EQ(text.behind, ""); // one line is the one that is being taken

    status.linesBehind = 2;
    status.portLost = true;
    status.left = 10h + 5s;
    text = StatusText(state, RunState::Measuring, status, texts);
    EXPECT_EQ(text.state, "Port lost; waiting for the instrument");
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

} // namespace
} // namespace quorvane
