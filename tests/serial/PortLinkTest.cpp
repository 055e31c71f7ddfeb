#include "tests/support/LinkWorld.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

// ---- opening --------------------------------------------------------------------------------------------

TEST(PortLink, OpensThePortOfTheSettingsOnce)
{
    LinkWorld with;
    with.state.RsPort = "COM12";
    with.state.RsFlow = 1;
    ASSERT_TRUE(with.link.OpenPort());
    EXPECT_EQ(with.port.device.path, "/dev/fake/12");
    EXPECT_EQ(with.port.line.handshaking, Handshaking::None);
    EXPECT_EQ(with.port.Waiting(), 0);
    EXPECT_EQ(with.port.inputLen, 0);

    with.port.Arrive("kept");
    with.port.inputLen = 4;
    EXPECT_TRUE(with.link.OpenPort());
    EXPECT_EQ(with.port.opened, 1);
    EXPECT_EQ(with.port.Waiting(), 4) << "an open port is left as it is";

    with.link.ClosePort();
    with.link.ClosePort();
    EXPECT_FALSE(with.port.IsOpen());
}

TEST(PortLink, TellsThatThePortCannotBeUsedAndKeepsTheReason)
{
    LinkWorld with;
    with.state.RsPort = "COM3";
    with.port.openFault = PortFault{PortFaultKind::Busy, "taken"};
    EXPECT_FALSE(with.link.OpenPort());
    ASSERT_EQ(with.prompts.messages.size(), 1U);
    EXPECT_EQ(with.prompts.messages[0].text, "COM3 is not used.");
    EXPECT_EQ(with.prompts.messages[0].detail, "Another program is using the port. Close it and try again.");
    EXPECT_EQ(with.prompts.messages[0].titleId, 101);
    EXPECT_EQ(with.prompts.messages[0].icon, Icon::None);
    EXPECT_EQ(with.link.LastFault()->kind, PortFaultKind::Busy);

    with.port.openFault.reset();
    with.state.RsPort = "COM99";
    EXPECT_FALSE(with.link.OpenPort());
    EXPECT_EQ(with.link.LastFault()->kind, PortFaultKind::Absent);
    with.state.RsPort = "COM1";
    with.state.RsStopBit = "7";
    EXPECT_FALSE(with.link.OpenPort());
    EXPECT_EQ(with.link.LastFault()->kind, PortFaultKind::Unsupported);
    EXPECT_EQ(with.prompts.messages.size(), 3U);
    with.state.RsStopBit = "1";
    EXPECT_TRUE(with.link.OpenPort());
    EXPECT_FALSE(with.link.LastFault());
}

TEST(PortLink, NeedsNoPortWithoutRunMode)
{
    LinkWorld with;
    with.state.RunMode = false;
    with.port.openFault = PortFault{};
    EXPECT_TRUE(with.link.OpenPort());
    EXPECT_TRUE(with.link.CheckInstrument());
    with.link.ClosePort();
    EXPECT_TRUE(with.port.sent.empty());
    EXPECT_EQ(with.world.Elapsed(), 0ns);
}

// ---- waiting --------------------------------------------------------------------------------------------

TEST(PortLink, EndsAWaitWhenTheWorldChanges)
{
    LinkWorld with;
    ASSERT_TRUE(with.link.OpenPort());
    with.world.After(50ms, [&] { with.link.Cancel(); });
    EXPECT_EQ(with.link.WaitTicks(1, 1000ms), WaitOutcome::Cancelled);
    with.world.After(50ms, [&] { with.port.Vanish(); });
    EXPECT_EQ(with.link.WaitTicks(1, 1000ms), WaitOutcome::PortLost);
    EXPECT_EQ(with.link.WaitTicks(1, 100ms), WaitOutcome::Elapsed) << "no port is no loss";
    with.world.After(50ms, [&] { with.world.Close(); });
    EXPECT_EQ(with.link.WaitTicks(1, 1000ms), WaitOutcome::Closing);
    EXPECT_FALSE(with.timer1.Enabled());
    EXPECT_LT(with.world.Elapsed(), 400ms);
}

// ---- the link check -------------------------------------------------------------------------------------

struct Answering {
    std::string_view what;
    std::string answer;
    World::Time delay;
    bool passes;
    std::string logged;
};

TEST(PortLink, DemandsTheExactAnswerInTime)
{
    const std::string hundred(100, 'x');
    const Answering rows[] = {
        {"at once", "AN\r\n", 1ms, true, ""},
        {"just in time", "AN\r\n", 490ms, true, ""},
        {"after 0.6 s", "AN\r\n", 600ms, false, "N Command,, 101\r\n"},
        {"to another command", "AD\r\n", 1ms, false, "N Command,AD\r\n, 101\r\n"},
        {"stray character in front", "?AN\r\n", 1ms, false, "N Command,?AN\r\n, 101\r\n"},
        {"something behind is left for later", "AN\r\nAN\r\n", 1ms, true, ""},
        {"incomplete", "AN\r", 1ms, false, "N Command,AN\r, 101\r\n"},
        {"longer than 100 reads", hundred + "AN\r\n", 1ms, false, "N Command," + hundred + "A, 101\r\n"},
    };
    for (const Answering& row : rows) {
        SCOPED_TRACE(row.what);
        LinkWorld with;
        with.AnswerLinkChecks(row.delay, row.answer);
        ASSERT_TRUE(with.link.OpenPort());
        EXPECT_EQ(with.link.CheckInstrument(), row.passes);
        EXPECT_EQ(with.port.sent, (std::vector<std::string>{"N\r\n", "N\r\n"}));
        EXPECT_EQ(with.port.inputLen, 0);
        EXPECT_EQ(with.LoggedErrors(), row.logged);
        EXPECT_TRUE(with.prompts.messages.empty()) << "the caller speaks";
    }
}

TEST(PortLink, WaitsUntilTheLineHasBeenQuietForASecond)
{
    LinkWorld with;
    with.AnswerLinkChecks(20ms);
    ASSERT_TRUE(with.link.OpenPort());
    with.port.SetInputLen(7);
    with.port.Arrive("an old line that waits\r\n");
    with.world.After(10ms, [&] { EXPECT_EQ(with.port.inputLen, 0); });
    for (int i = 1; i <= 40; ++i) // a stream that goes on for four seconds
        with.port.Deliver(i * 100ms, "chatter");
    EXPECT_TRUE(with.link.CheckInstrument());
    EXPECT_GE(with.world.Elapsed(), 5s);
    EXPECT_LE(with.world.Elapsed(), 7s);
}

TEST(PortLink, DrainsWithoutLimitUntilTheOperatorStops)
{
    LinkWorld with;
    ASSERT_TRUE(with.link.OpenPort());
    std::function<void()> chatter = [&] {
        with.port.Arrive("x");
        with.world.After(200ms, chatter);
    };
    chatter();
    with.world.After(1h, [&] { with.link.Cancel(); });
    EXPECT_FALSE(with.link.CheckInstrument());
    EXPECT_GE(with.world.Elapsed(), 1h);
    EXPECT_EQ(with.port.sent.size(), 1U);
    EXPECT_EQ(with.LoggedErrors(), "") << "stopped, not failed";
}

TEST(PortLink, LogsWhatHadComeWhenTheExchangeBreaks)
{
    LinkWorld refusing;
    ASSERT_TRUE(refusing.link.OpenPort());
    refusing.port.refuseOutput = true;
    EXPECT_FALSE(refusing.link.CheckInstrument());
    EXPECT_EQ(refusing.LoggedErrors(), "N Command,, 0\r\n");

    LinkWorld lost;
    lost.AnswerLinkChecks(50ms);
    ASSERT_TRUE(lost.link.OpenPort());
    lost.world.After(2300ms, [&] { lost.port.Vanish(); }); // behind the second "N" and its answer
    EXPECT_FALSE(lost.link.CheckInstrument());
    EXPECT_EQ(lost.LoggedErrors(), "N Command,AN\r\n, 0\r\n");
    EXPECT_EQ(lost.port.inputLen, 0);
}

/// One thing that happens in the middle of an exchange.
struct Interruption {
    std::string_view what;
    std::function<void(LinkWorld&)> happen;
    bool endsIt;       ///< the exchange must not succeed after it
    bool leavesRecord; ///< when it does not succeed, the log tells
};

TEST(PortLink, SurvivesAnythingAtAnyPump)
{
    const Interruption interruptions[] = {
        {"cancel", [](LinkWorld& with) { with.link.Cancel(); }, true, false},
        {"closing", [](LinkWorld& with) { with.world.Close(); }, true, false},
        {"hang-up", [](LinkWorld& with) { with.port.Vanish(); }, true, true},
        {"another exchange", [](LinkWorld& with) { EXPECT_FALSE(with.link.CheckInstrument()); }, true, false},
        {"another wait",
         [](LinkWorld& with) { EXPECT_EQ(with.link.WaitTicks(1, 100ms), WaitOutcome::Cancelled); }, true,
         false},
        {"stray bytes", [](LinkWorld& with) { with.port.Arrive("?"); }, false, true},
        {"a message box",
         [](LinkWorld& with) {
             for (int i = 0; i < 20; ++i)
                 static_cast<void>(with.world.Serve(100ms));
         },
         false, true},
    };
    for (const Interruption& interruption : interruptions) {
        for (long k = 1;; ++k) {
            SCOPED_TRACE(std::string(interruption.what) + " at pump " + std::to_string(k));
            LinkWorld with;
            with.world.pumpLimit = 2000;
            with.AnswerLinkChecks(20ms);
            ASSERT_TRUE(with.link.OpenPort());
            bool happened = false;
            with.world.onPump = [&](long pump) {
                if (pump == k && !happened) {
                    happened = true;
                    interruption.happen(with);
                }
            };
            const bool passed = with.link.CheckInstrument();
            if (!happened) {
                EXPECT_GT(k, 100) << "the sweep went through the whole exchange";
                EXPECT_TRUE(passed);
                break;
            }
            if (interruption.endsIt) {
                EXPECT_FALSE(passed);
            }
            EXPECT_EQ(with.LoggedErrors().empty(), passed || !interruption.leavesRecord);
            EXPECT_EQ(with.port.inputLen, 0);
            EXPECT_FALSE(with.timer1.Enabled());
            EXPECT_LE(with.port.sent.size(), 2U) << "nothing was sent by the other exchange";
        }
    }
}

} // namespace
} // namespace quorvane
