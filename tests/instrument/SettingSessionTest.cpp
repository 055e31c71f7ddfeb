#include "instrument/SettingSession.h"

#include "tests/support/LinkWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using enum InstrumentSend;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

auto Text(const std::string& text)
{
    return testing::Field(&Message::text, text);
}

const std::string kRecord = "2024/05/01 12:00:05\r\n";

/// Notes what it is shown, and that nothing comes behind the end.
class NotingView : public SettingView {
public:
    std::vector<std::string> notes;
    int began = 0;
    int ended = 0;
    int closed = 0;
    std::function<void()> onClosed = [] {};

    void ExchangeBegan(InstrumentSend) override { Note("began"), ++began; }
    void ExchangeEnded(InstrumentSend) override { Note("ended"), ++ended; }
    void ProgramRefused(ProgramField) override { Note("program refused"); }
    void KFactorRefused() override { Note("factor refused"); }
    void ClockRequest(const std::string& request) override { Note(request); }
    void ComputerClockRead(const ClockTexts& clock) override
    {
        Note("here " + clock.date + " " + clock.time);
    }
    void InstrumentClockRead(const ClockTexts& clock) override
    {
        Note("there " + clock.date + " " + clock.time);
    }
    void Closed() override
    {
        Note("closed");
        ++closed;
        onClosed();
    }

private:
    void Note(const std::string& note)
    {
        EXPECT_EQ(closed, 0) << note << " after the end";
        notes.push_back(note);
    }
};

/// An instrument that answers everything but what it is told not to, and an operator's session with it.
struct SettingWorld : LinkWorld {
    SettingWorld()
    {
        state.ProgramStartDate = "2024/05/02";
        state.ProgramStartTime = "09:30:00";
        state.ProgramMeasureHours = 1;
        state.ProgramMeasureMinutes = 30;
        state.ProgramMeasureCount = 120;
        state.KFactor = 0.0012;
        view.onClosed = [this] { closedAt = world.Elapsed(); };
        port.onOutput = [this](const std::string& text) {
            if (silent.find(text[0]) != std::string::npos)
                return;
            const bool program = text[0] == 'P';
            port.Deliver(program ? 1500ms : 150ms, std::string("A") + text[0] + "\r\n");
            if (text[0] == 'M')
                port.Deliver(180ms, kRecord);
        };
    }
    /// Handlers of windows run while events are served, so the world goes on in small steps.
    void Pass(std::chrono::milliseconds time)
    {
        const World::Time end = world.Elapsed() + time;
        while (world.Elapsed() < end && world.Serve(20ms)) {
        }
    }
    void Close()
    {
        if (closeAsked == World::Time{})
            closeAsked = world.Elapsed();
        session->Close();
    }

    std::string silent; ///< letters that get no answer
    World::Time closeAsked{};
    World::Time closedAt{};
    WorldTimer clockTimer{world};
    NotingView view;
    std::unique_ptr<SettingSession> session = std::make_unique<SettingSession>(
        state, SettingSession::Parts{link, port, clockTimer, log, prompts, texts, locale, world}, view);
};

TEST(SettingSession, SaysOnceThatThePortCannotBeUsed)
{
    SettingWorld with;
    with.port.openFault = PortFault{};
    with.session->Open();
    with.session->ShowClockPage(true);
    with.Pass(2100ms);
    EXPECT_THAT(with.prompts.messages, ElementsAre(Text("COM1 is not used.")));
    EXPECT_THAT(with.view.notes,
                ElementsAre("here 2024/05/01 09:30:00", "there 2024/05/01 09:30:00",
                            "here 2024/05/01 09:30:01", "there  ", "here 2024/05/01 09:30:02", "there  "));
    EXPECT_EQ(with.state.SystemDateText + with.state.SystemTimeText, "2024/05/0109:30:02");

    with.session->Send(KFactor);
    with.session->RefreshClock();
    EXPECT_EQ(with.prompts.messages.size(), 3U) << "the port's message speaks, and no other";
    EXPECT_EQ(with.view.began, 0);
    with.port.openFault.reset();
    with.session->Send(KFactor);
    EXPECT_EQ(with.prompts.messages.back().text, "It completed.");

    with.session->ShowClockPage(false);
    with.port.Vanish(); // and is plugged in again; nobody has looked
    with.session->Send(KFactor);
    EXPECT_EQ(with.port.opened, 2);
    EXPECT_EQ(with.prompts.messages.back().text, "It completed.");
    EXPECT_EQ(with.LoggedErrors(), "");
}

TEST(SettingSession, ReadsBothClocksWhileTheirPageIsShown)
{
    SettingWorld with;
    with.session->Open();
    with.session->ShowClockPage(true);
    with.Pass(1500ms);
    EXPECT_EQ(with.view.notes.back(), "there 2024/05/01 12:00:05");
    with.silent = "M";
    with.session->RefreshClock();
    EXPECT_EQ(with.view.notes.back(), "there  ");
    EXPECT_EQ(with.LoggedErrors(), "M Command,, 4\r\n");
    with.session->ShowClockPage(false);
    with.Pass(3000ms);
    EXPECT_EQ(with.port.sent, (std::vector<std::string>{"M\r\n", "M\r\n"}));
    EXPECT_TRUE(with.prompts.messages.empty());

    with.silent = "";
    with.world.After(100ms, [&] { with.link.Cancel(); }); // before the answer
    with.session->RefreshClock();
    with.session->RefreshClock();
    EXPECT_EQ(with.port.Waiting(), 0) << "or every later reading would be the one before";

    SettingWorld slow;
    slow.session->Open();
    slow.silent = "M";
    slow.port.Deliver(1250ms, "AM\r\n2024/05/01 11:11:11\r\n"); // when the read has given up
    slow.session->RefreshClock();
    slow.Pass(200ms);
    slow.silent = "";
    slow.session->RefreshClock();
    EXPECT_EQ(slow.view.notes.back(), "there 2024/05/01 12:00:05") << "its own answer";
    slow.port.Arrive("AM\r\n2024/05/01 11:11:11\r\n");
    slow.session->Send(KFactor);
    EXPECT_EQ(slow.prompts.messages.back().text, "It completed.");

    SettingWorld debug;
    debug.state.RunMode = false;
    debug.session->Open();
    static_cast<void>(debug.world.Serve(15h)); // past midnight
    debug.session->ShowClockPage(true);
    debug.Pass(1100ms);
    EXPECT_EQ(debug.view.notes.back(), "there 2024/05/01 00:30:01") << "meant: the date stays";
    EXPECT_EQ(debug.port.opened, 0);
}

TEST(SettingSession, TellsTheResultWhenEverythingCanBeUsedAgain)
{
    struct Row {
        InstrumentSend send;
        std::string text;
        std::vector<std::string> notes;
    };
    const Row rows[] = {
        {Program, "P2024/05/02;09:30:00;01:30;00120", {"began", "ended"}},
        {Clock, "T2024;05;01;09;30;00", {"began", "T2024;05;01;09;30;00", "ended"}},
        {KFactor, "E1.2", {"began", "ended"}},
    };
    for (const Row& row : rows) {
        for (const bool answered : {true, false}) {
            SCOPED_TRACE(row.text);
            SettingWorld with;
            with.silent = answered ? "" : row.text.substr(0, 1);
            with.session->Open();
            with.session->ShowClockPage(true);
            with.view.notes.clear();
            bool ticking = false;
            with.port.onOutput = [&, instrument = with.port.onOutput](const std::string& text) {
                ticking = with.clockTimer.Enabled();
                instrument(text);
            };
            with.prompts.whileOpen = [&] {
                EXPECT_EQ(with.view.notes, row.notes);
                EXPECT_EQ(ticking, row.send != Clock);
                EXPECT_TRUE(with.clockTimer.Enabled());
                with.session->Send(KFactor);
                with.Pass(1100ms); // the tick behind the message does nothing
            };
            with.session->Send(row.send);
            EXPECT_EQ(with.port.sent.front(), row.text + "\r\n");
            EXPECT_EQ(with.port.sent.size(), answered ? 1U : 3U);
            EXPECT_THAT(with.prompts.messages,
                        ElementsAre(Text(answered ? "It completed." : "RS232C ERROR.")));
            EXPECT_EQ(with.prompts.messages[0].titleId, 101);
            EXPECT_EQ(with.prompts.messages[0].icon, Icon::None);
            EXPECT_FALSE(with.session->Busy());
        }
    }
}

TEST(SettingSession, SendsNothingThatIsRefused)
{
    struct Row {
        std::string_view what;
        InstrumentSend send;
        void (*change)(ApplicationState&);
        std::string note;
        std::string message;
    };
    const Row rows[] = {
        {"no coefficient", KFactor, [](ApplicationState& state) { state.KFactor = 0; }, "factor refused",
         "It is over the setting range. Redo setup.(0.0001-0.0099)"},
        {"no count", Program, [](ApplicationState& state) { state.ProgramMeasureCount = 0; },
         "program refused", "It is over the setting range. Redo setup.(1-30000)"},
        {"yesterday", Program, [](ApplicationState& state) { state.ProgramStartDate = "2024/04/30"; },
         "program refused", "Start date is invalid."},
        {"yesterday without an instrument", Program,
         [](ApplicationState& state) {
             state.ProgramStartDate = "2024/04/30";
             state.RunMode = false;
         },
         "ended", "It completed."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        SettingWorld with;
        row.change(with.state);
        with.session->Open();
        with.session->Send(row.send);
        EXPECT_EQ(with.view.notes.back(), row.note);
        EXPECT_THAT(with.prompts.messages, ElementsAre(Text(row.message)));
        EXPECT_TRUE(with.port.sent.empty());
        EXPECT_EQ(with.world.Elapsed(), 0ms);
    }
}

TEST(SettingSession, EndsAnExchangeSilentlyOnAnError)
{
    SettingWorld with;
    with.session->Open();
    with.session->ShowClockPage(true);
    with.port.onOutput = [](const std::string&) { throw std::runtime_error("broken"); };
    with.session->Send(Clock);
    with.Pass(1100ms);
    EXPECT_EQ(with.port.sent.size(), 2U) << "the clock is read again";
    EXPECT_EQ(with.view.notes.back(), "there  ") << "and told to be unknown";
    EXPECT_EQ(with.view.began, with.view.ended);
    EXPECT_FALSE(with.session->Busy());
    EXPECT_TRUE(with.prompts.messages.empty());
}

TEST(SettingSession, ClosesWhenTheLastMessageIsClosed)
{
    SettingWorld with;
    with.view.onClosed = [&] { with.session.reset(); };
    with.session->Open();
    with.session->ShowClockPage(true);
    with.world.After(1100ms, [&] { with.session->Send(KFactor); }); // while the clock is read
    with.prompts.whileOpen = [&] {
        with.session->Close();
        with.session->Close();
        EXPECT_EQ(with.view.closed, 0);
    };
    with.Pass(5000ms);
    EXPECT_EQ(with.view.closed, 1);
    EXPECT_EQ(with.session, nullptr);
    EXPECT_THAT(with.prompts.messages, ElementsAre(Text("It completed.")));
}

TEST(SettingSession, SurvivesAnythingAtAnyPump)
{
    struct Interruption {
        std::string_view what;
        void (*happen)(SettingWorld&);
        bool allCompletes; ///< nothing fails, and each send is told to have completed
    };
    const Interruption interruptions[] = {
        {"close", [](SettingWorld& with) { with.Close(); }, false},
        {"send the program", [](SettingWorld& with) { with.session->Send(Program); }, true},
        {"send the clock", [](SettingWorld& with) { with.session->Send(Clock); }, true},
        {"send the factor", [](SettingWorld& with) { with.session->Send(KFactor); }, true},
        {"refresh", [](SettingWorld& with) { with.session->RefreshClock(); }, true},
        {"send, and close at once",
         [](SettingWorld& with) {
             with.world.After(19ms, [&] { with.Close(); });
             with.session->Send(KFactor);
         },
         false},
        {"send, and close a little later",
         [](SettingWorld& with) {
             with.world.After(39ms, [&] { with.Close(); });
             with.session->Send(KFactor);
         },
         false},
        {"send and hang-up",
         [](SettingWorld& with) {
             with.port.openFault = PortFault{};
             with.session->Send(KFactor);
             with.port.Vanish();
         },
         false},
        {"program closing", [](SettingWorld& with) { with.world.Close(); }, false},
        {"hang-up", [](SettingWorld& with) { with.port.Vanish(); }, false},
        {"bytes", [](SettingWorld& with) { with.port.Arrive("AE\r\n?"); }, false},
        {"a message box", [](SettingWorld& with) { with.Pass(2000ms); }, true},
    };
    for (const Interruption& interruption : interruptions) {
        for (long k = 1;; ++k) {
            SCOPED_TRACE(std::string(interruption.what) + " at pump " + std::to_string(k));
            SettingWorld with;
            with.world.pumpLimit = 3000;
            bool happened = false;
            with.world.onPump = [&](long pump) {
                if (pump == k && !std::exchange(happened, true))
                    interruption.happen(with);
            };
            with.prompts.whileOpen = [&] {
                EXPECT_EQ(with.view.began, with.view.ended) << "the box is shown when all can be used again";
                static_cast<void>(with.world.Serve(100ms));
            };
            with.session->Open();
            with.session->ShowClockPage(true);
            with.Pass(1500ms);
            for (const InstrumentSend send : {Program, Clock, KFactor})
                with.session->Send(send);
            with.Pass(1500ms);
            with.Close();

            EXPECT_LT(with.world.Pumps(), with.world.pumpLimit);
            EXPECT_EQ(with.view.closed, 1);
            EXPECT_LE(with.closedAt - with.closeAsked, 120ms) << "a look of a wait, and a box's 100 ms";
            EXPECT_EQ(with.view.began, with.view.ended);
            EXPECT_FALSE(with.session->Busy());
            EXPECT_FALSE(with.port.IsOpen());
            EXPECT_FALSE(with.clockTimer.Enabled());
            EXPECT_FALSE(with.timer1.Enabled());
            if (interruption.allCompletes) {
                EXPECT_EQ(with.LoggedErrors(), "");
                EXPECT_THAT(with.prompts.messages, testing::Each(Text("It completed.")));
                EXPECT_EQ(with.prompts.messages.size(), static_cast<std::size_t>(with.view.began));
                EXPECT_THAT(with.view.notes, Not(Contains("there  ")))
                    << "a read that gave way shows nothing";
            }
            if (!happened) {
                EXPECT_GT(k, 200) << "the sweep went through the whole session";
                break;
            }
        }
    }
}

} // namespace
} // namespace quorvane
