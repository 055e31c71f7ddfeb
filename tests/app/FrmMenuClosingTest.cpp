#include "tests/support/WindowWorld.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

struct FrmMenuClosingTest : testing::Test, WindowWorld {};

TEST_F(FrmMenuClosingTest, ClosesOnlyWhenNothingIsLostAgainstTheOperatorsWill)
{
    struct Row {
        std::string_view what;
        bool data;
        Answer answer;
        std::optional<std::string> saveName;
        bool diskFull, closes;
    };
    const Row rows[] = {
        {"no data, no question", false, Answer::Ok, {}, false, true},
        {"No discards", true, Answer::No, {}, false, true},
        {"Yes saves", true, Answer::Yes, "out.csv", false, true},
        {"Yes, but the dialog is cancelled: nothing was saved", true, Answer::Yes, {}, false, false},
        {"Yes, but the disk is full", true, Answer::Yes, "out.csv", true, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        prompts.messages.clear();
        prompts.saveNames.clear();
        Open();
        if (row.data)
            Measure();
        prompts.answers = {row.answer};
        if (row.saveName)
            prompts.saveNames = {row.saveName};
        if (row.diskFull)
            files.replaceFault = FileFault{FileFaultKind::NoSpace, ""};
        files.files.erase("app/Quorvane.ini");
        EXPECT_EQ(window->close(), row.closes);
        EXPECT_EQ(window->isVisible(), !row.closes);
        EXPECT_EQ(std::exchange(closed, 0), row.closes ? 1 : 0);
        EXPECT_EQ(files.files.contains("app/Quorvane.ini"), row.closes);
        EXPECT_EQ(prompts.messages.empty(), !row.data);
        files.replaceFault.reset();
        if (!row.closes) { // the operator has stayed; everything goes on
            prompts.answers = {Answer::No};
            Measure();
            ExpectIdle();
            EXPECT_EQ(Rows(), 3);
        }
        window.reset();
    }
}

TEST_F(FrmMenuClosingTest, ExitWritesTheSettingsBeforeTheQuestionAndAtTheClose)
{
    Open();
    Measure();
    prompts.whileOpen = [this] { EXPECT_EQ(files.replaceCalls, 2); }; // the test's own and this one
    Trigger("MenuExit");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(files.replaceCalls, 4); // once more, and what the window remembers of its looks
}

TEST_F(FrmMenuClosingTest, ACloseBehindTheQuestionIsAnsweredWithIt)
{
    Open();
    Measure();
    prompts.whileOpen = [this] { window->close(); };
    prompts.answers = {Answer::Yes}; // and then no file name
    EXPECT_FALSE(window->close());
    QApplication::processEvents();
    EXPECT_EQ(prompts.messages.size(), 1U);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(FrmMenuClosingTest, ACloseDuringARunComesBackWhenTheRunHasEnded)
{
    Plan(5, 1);
    Open();
    std::size_t sentAtQuestion = 0;
    prompts.whileOpen = [&] { sentAtQuestion = port.sent.size(); };
    onPump = [this](long) {
        if (Rows() == 2 && window->Run().State() == RunState::Measuring) {
            EXPECT_FALSE(window->close());
            EXPECT_FALSE(window->close()); // an impatient second one must not give the stop exchange up
        }
    };
    prompts.answers = {Answer::Yes}; // and then no file name: the window stays
    Measure();
    EXPECT_THAT(Messages(), ElementsAre("Data is not saved. Do you save?"));
    EXPECT_EQ(sentAtQuestion, port.sent.size());
    EXPECT_EQ(port.sent.back(), "N\r\n");
    EXPECT_TRUE(window->isVisible());
    ExpectIdle();
    EXPECT_EQ(Rows(), 2);
}

TEST_F(FrmMenuClosingTest, ASystemThatEndsWaitsForReadings)
{
    Plan(3, 1);
    Open();
    EXPECT_FALSE(window->RefusesEndOfSystem()) << "there is nothing to lose";
    onPump = [this](long) {
        if (window->Run().State() == RunState::Measuring) {
            EXPECT_TRUE(window->RefusesEndOfSystem());
        }
    };
    Measure();
    EXPECT_EQ(Rows(), 3) << "the run has gone on";
    EXPECT_THAT(Messages(), ElementsAre());
    prompts.answers = {Answer::No};
    EXPECT_TRUE(window->RefusesEndOfSystem());
    EXPECT_TRUE(window->isVisible()) << "the system has its answer first";
    QApplication::processEvents();
    EXPECT_THAT(Messages(), ElementsAre("Data is not saved. Do you save?"));
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmMenuClosingTest, ACloseBehindTheQuestionAboutALongTableComesAfterIt)
{
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        Plan(10001, 1);
        Open();
        Pause();
        prompts.answers = {answer};
        prompts.whileOpen = [this] { EXPECT_FALSE(window->close()); };
        Click("Command1");
        QApplication::processEvents();
        EXPECT_EQ(prompts.messages.size(), 1U); // there are no readings to be asked about
        EXPECT_FALSE(window->isVisible());
        EXPECT_TRUE(port.sent.empty());
        ExpectIdle();
        prompts.messages.clear();
        window.reset();
    }
}

TEST_F(FrmMenuClosingTest, ACloseWhileTheRunConnectsOrTheStartAsksStopsIt)
{
    Plan(50, 1);
    for (const bool asks : {false, true}) {
        Open();
        if (asks) {
            Plan(2, 1);
            Measure();
            Plan(50, 1);
        }
        Pause();
        prompts.whileOpen = [&] { window->close(); };
        onPump = [&](long) {
            if (!asks && window->Run().State() == RunState::Starting)
                window->close();
        };
        const int before = state.SampleCount;
        const World::Time began = world.Elapsed();
        MeasureAtOnce(); // asked about the first readings: No, and the close comes meanwhile
        QApplication::processEvents();
        EXPECT_EQ(state.SampleCount, before);
        EXPECT_EQ(std::ranges::count(port.sent, "D\r\n"), asks ? 1 : 0); // that of the first run
        EXPECT_LT(world.Elapsed() - began, 10s);
        EXPECT_FALSE(window->isVisible());
        if (asks) {
            EXPECT_EQ(prompts.messages.back().icon, Icon::Critical);
            EXPECT_EQ(prompts.messages.back().titleId, 101);
        }
        window.reset();
    }
}

/// Whatever comes at whatever moment of a run: at the end the port is closed, the timers are off, the
/// controls are idle, the rows agree with the counts, and the run has ended.
TEST_F(FrmMenuClosingTest, EndsInOrderWhateverComesAtWhateverMoment)
{
    struct Event {
        const char* what;
        std::function<void()> happens;
        bool closes;
    };
    const Event events[] = {
        {"close and stop",
         [this] {
             window->close();
             Click("Command1");
         },
         true},
        {"start again by the menu", [this] { Trigger("MenuMeasureStart"); }, false},
        {"the adapter is pulled out, then close",
         [this] {
             port.Vanish();
             window->close();
         },
         true},
        {"about box, then close",
         [this] {
             Trigger("MenuVersion");
             window->close();
         },
         true},
    };
    for (const bool simulated : {false, true}) {
        for (const Event& event : events) {
            for (long k = 1, last = k; k <= last; k += simulated ? 23 : 7) {
                SCOPED_TRACE(std::string(event.what) + " at pump " + std::to_string(k));
                WindowWorld::Plan(2, 1);
                state.RunMode = !simulated;
                Open();
                Pause();
                const long before = world.Pumps();
                bool happened = false;
                onPump = [&](long) {
                    if (!happened && world.Pumps() - before == k) {
                        happened = true;
                        event.happens();
                    }
                };
                MeasureAtOnce();
                onPump = nullptr;
                QApplication::processEvents();
                last = std::max(last, world.Pumps() - before);
                EXPECT_LT(world.Pumps() - before, 5000);
                EXPECT_EQ(window->isVisible(), !(event.closes && happened));
                ExpectIdle();
                if (HasFailure())
                    return;
                window.reset();
                state.DataPresent = 0;
                state.SampleCount = 0;
            }
        }
    }
}

} // namespace
} // namespace quorvane
