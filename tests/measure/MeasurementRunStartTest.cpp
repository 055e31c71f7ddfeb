#include "tests/support/RunWorld.h"

#include <cmath>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

TEST(MeasurementRunStart, RefusesLimitsThatAreOutOfOrder)
{
    struct Row {
        double twa, stel, ceiling;
        bool starts;
    };
    for (const Row& row :
         {Row{1, 1, 1, true}, Row{1, 2, 3, true}, Row{2, 1, 3, false}, Row{1, 3, 2, false}}) {
        RunWorld with;
        with.GiveLines(3);
        with.state.TwaAlarm = row.twa;
        with.state.StelAlarm = row.stel;
        with.state.CAlarm = row.ceiling;
        with.state.DataPresent = 1; // unsaved data is not even asked about
        with.prompts.answers = {Answer::No};
        const RunResult result = with.run.Start();
        EXPECT_EQ(result == RunResult::Completed, row.starts);
        if (row.starts)
            continue;
        EXPECT_EQ(result, RunResult::LimitsDisorder);
        ASSERT_EQ(with.prompts.messages.size(), 1U);
        EXPECT_EQ(with.prompts.messages[0].text,
                  "It is over the setting range. Redo setup.\r\n\r\nTLV-C: > TLV-STEL: > TLV-TWA:");
        EXPECT_EQ(with.prompts.messages[0].icon, Icon::Critical);
        EXPECT_EQ(with.prompts.messages[0].titleId, 161) << "another dialog's title, on purpose";
        EXPECT_TRUE(with.listener.states.empty());
    }
}

TEST(MeasurementRunStart, AsksAboutUnsavedDataBeforeItIsLost)
{
    RunWorld with;
    with.GiveLines(3);
    ASSERT_EQ(with.run.Start(), RunResult::Completed);

    with.timer2.Enable();
    with.timer3.Enable();
    with.prompts.whileOpen = [&] { EXPECT_FALSE(with.timer2.Enabled() || with.timer3.Enabled()); };
    with.prompts.answers = {Answer::Yes};
    EXPECT_EQ(with.run.Start(), RunResult::SavedInstead);
    EXPECT_EQ(with.saves, 1);
    ASSERT_EQ(with.Messages(), std::vector<std::string>{"Data is not saved. Do you save?"});
    EXPECT_EQ(with.prompts.messages[0].icon, Icon::Critical);
    EXPECT_EQ(with.prompts.messages[0].buttons, Buttons::YesNo);
    EXPECT_EQ(with.prompts.messages[0].titleId, 101);
    EXPECT_EQ(with.run.Status().taken, 3);

    with.prompts.answers = {Answer::No};
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    EXPECT_EQ(with.prompts.messages.size(), 2U);

    with.state.DataSaved = 1;
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    EXPECT_EQ(with.prompts.messages.size(), 2U) << "saved data needs no question";
    EXPECT_EQ(with.state.DataSaved, 0) << "but the run after it does";
    with.prompts.answers = {Answer::Yes};
    EXPECT_EQ(with.run.Start(), RunResult::SavedInstead);
    EXPECT_EQ(with.prompts.messages.size(), 3U);
}

TEST(MeasurementRunStart, RefusesAPlanThatCannotBe)
{
    struct Row {
        double total;
        std::int16_t seconds;
        RunResult result;
        std::string_view message;
    };
    const Row rows[] = {
        {0, 1, RunResult::NoSamples, "Number of Data is zero. Redo setup."},
        {-1, 1, RunResult::OutOfRange, "It is over the setting range. Redo setup.(1-65500)"},
        {0.5, 1, RunResult::OutOfRange, "It is over the setting range. Redo setup.(1-65500)"},
        {2.5, 1, RunResult::OutOfRange, "It is over the setting range. Redo setup.(1-65500)"},
        {65501, 1, RunResult::OutOfRange, "It is over the setting range. Redo setup.(1-65500)"},
        {std::nan(""), 1, RunResult::OutOfRange, "It is over the setting range. Redo setup.(1-65500)"},
        {3, 0, RunResult::OutOfRange, "It is over the setting range. Redo setup.(1-900)"},
        {3, 901, RunResult::OutOfRange, "It is over the setting range. Redo setup.(1-900)"},
        {3, -1, RunResult::OutOfRange, "It is over the setting range. Redo setup.(1-900)"},
    };
    for (const Row& row : rows) {
        RunWorld with;
        with.state.TotalSamples = row.total;
        with.state.SamplingSeconds = row.seconds;
        EXPECT_EQ(with.run.Start(), row.result);
        ASSERT_EQ(with.prompts.messages.size(), 1U);
        EXPECT_EQ(with.prompts.messages[0].text, row.message);
        EXPECT_EQ(with.prompts.messages[0].icon, Icon::Critical);
        EXPECT_EQ(with.prompts.messages[0].titleId, 101);
        EXPECT_EQ(with.run.State(), RunState::Idle);
        EXPECT_EQ(with.port.opened, 0);
        EXPECT_EQ(with.listener.results, std::vector<RunResult>{row.result});
    }
}

TEST(MeasurementRunStart, AsksBeforeALongTable)
{
    struct Row {
        int samples;
        std::int16_t seconds;
        std::optional<Answer> answer; ///< to the question; nothing: nothing is asked
        RunResult result;
    };
    const Row rows[] = {
        {10000, 1, {}, RunResult::Completed},
        {10001, 1, Answer::Yes, RunResult::Completed},
        {10001, 1, Answer::No, RunResult::Declined},
        {10001, 901, {}, RunResult::OutOfRange}, // what cannot be is not asked about
    };
    for (const Row& row : rows) {
        RunWorld with;
        with.state.RunMode = false;
        with.state.TotalSamples = row.samples;
        with.state.SamplingSeconds = row.seconds;
        if (row.answer)
            with.prompts.answers = {*row.answer};
        with.prompts.whileOpen = [&] { EXPECT_EQ(with.run.State(), RunState::Preparing); };
        EXPECT_EQ(with.run.Start(), row.result);
        EXPECT_EQ(with.state.SampleCount, row.result == RunResult::Completed ? row.samples : 0);
        EXPECT_EQ(with.listener.results, std::vector<RunResult>{row.result});
        if (!row.answer)
            continue;
        ASSERT_EQ(with.prompts.messages.size(), 1U);
        EXPECT_EQ(with.prompts.messages[0].text, "More than 10000 readings make a long table. Go on?");
        EXPECT_EQ(with.prompts.messages[0].icon, Icon::Exclamation);
        EXPECT_EQ(with.prompts.messages[0].titleId, 101);
        EXPECT_EQ(with.prompts.messages[0].buttons, Buttons::YesNo);
    }
}

TEST(MeasurementRunStart, TellsAdviceLastAndStartsInSpiteOfIt)
{
    for (const bool anyway : {true, false}) {
        RunWorld with;
        RunServices services = with.Services([] { return 0.5; });
        services.advice = [] { return std::string("Only 3 MB are free."); };
        MeasurementRun run(
            with.state, with.arrays, services, [] {}, with.listener);
        with.state.RunMode = false;
        with.prompts.answers = {anyway ? Answer::Yes : Answer::No};
        EXPECT_EQ(run.Start(), anyway ? RunResult::Completed : RunResult::Declined);
        ASSERT_EQ(with.prompts.messages.size(), 1U);
        EXPECT_EQ(with.prompts.messages[0].text, "Only 3 MB are free.\r\n\r\nStart anyway?");
        EXPECT_EQ(with.prompts.messages[0].unattended, Answer::Yes)
            << "nobody there must not keep a run from starting";
    }
}

/// A run of three readings whose data is saved, so that the next start asks nothing.
void TakeEarlierData(RunWorld& with)
{
    with.GiveLines(3);
    ASSERT_EQ(with.run.Start(), RunResult::Completed);
    with.state.DataSaved = 1;
    with.listener = {};
}

void ExpectEarlierDataKept(const RunWorld& with)
{
    EXPECT_EQ(with.state.SampleCount, 3);
    EXPECT_EQ(with.arrays.MeasureTime[3], "09:30:03");
    EXPECT_EQ(with.state.DataPresent, 1);
    EXPECT_EQ(with.state.DataSaved, 1);
    EXPECT_EQ(with.run.State(), RunState::Idle);
    EXPECT_FALSE(with.port.IsOpen());
    EXPECT_FALSE(with.timer1.Enabled() || with.timer2.Enabled() || with.timer3.Enabled());
}

TEST(MeasurementRunStart, KeepsEarlierDataWhenItCannotStart)
{
    RunWorld with;
    TakeEarlierData(with);

    with.port.openFault = PortFault{PortFaultKind::Absent, ""};
    EXPECT_EQ(with.run.Start(), RunResult::PortNotOpened);
    EXPECT_EQ(with.listener.prepared, 1) << "chart and table are ready before the port is tried";
    EXPECT_EQ(with.listener.cleared, 0);
    EXPECT_EQ(with.Messages(), std::vector<std::string>{"COM1 is not used."});
    ExpectEarlierDataKept(with);

    with.port.openFault.reset();
    with.answersLinkChecks = false;
    EXPECT_EQ(with.run.Start(), RunResult::LinkFailed);
    EXPECT_EQ(with.Messages().back(), "RS232C ERROR.");
    EXPECT_EQ(with.LoggedErrors(), "N Command,, 101\r\n");
    ExpectEarlierDataKept(with);

    with.answersLinkChecks = true;
    const auto sentBefore = with.port.sent.size();
    with.world.After(1s, [&] { with.run.Stop(); });
    EXPECT_EQ(with.run.Start(), RunResult::StoppedAtStart);
    EXPECT_EQ(with.Messages().size(), 2U) << "stopped silently";
    EXPECT_EQ(with.port.sent.size(), sentBefore + 1) << "one N, no D";
    ExpectEarlierDataKept(with);
}

} // namespace
} // namespace quorvane
