#include "instrument/InstrumentClock.h"

#include "tests/support/InstrumentVectors.h"
#include "tests/support/LinkWorld.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

const std::string kRecord = "2024/05/01 09:30:05\r\n";
const ClockTexts kComputer{.date = "2024/05/01", .time = "09:30:00"};

struct ClockWorld : LinkWorld {
    ClockWorld() { EXPECT_TRUE(link.OpenPort()); }
    InstrumentClock clock{state, link, port, log};
};

TEST(InstrumentClock, TellsTheComputersClockInTheInstrumentsForm)
{
    struct Row {
        std::string_view what;
        std::string dateFormat, timeFormat;
        std::chrono::hours later; ///< than 09:30 on the first of May
        std::string_view request;
    };
    const Row rows[] = {
        {"points, short fields", "d.M.yy", "H.mm.ss", 24h, "T2024;05;02;09;30;00"},
        {"half past noon stays the odd 24", "M/d/yyyy", "h:mm:ss tt", 3h, "T2024;05;01;24;30;00"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        LinkWorld with;
        with.locale.shortDateFormat = row.dateFormat;
        with.locale.timeFormat = row.timeFormat;
        const InstrumentCommand command =
            ClockCommand(ComputerClock(with.state, with.locale, with.texts, with.world.Now() + row.later));
        EXPECT_EQ(command.Text(), row.request);
        EXPECT_TRUE(command.clearInputFirst);
    }
    for (const ClockVector& vector : kClockVectors) {
        LinkWorld with;
        const ClockTexts clock = ComputerClock(with.state, with.locale, with.texts, vector.moment);
        EXPECT_EQ(ClockCommand(clock).Text() + "\r\n", vector.exchange.request) << vector.exchange.what;
    }
    EXPECT_EQ(ClockCommand({.date = "00/00/00", .time = "09:30:00"}).Text(), "T00/0;/0;;09;30;00")
        << "by position, whatever stands there";
}

TEST(InstrumentClock, ReadsAcknowledgementAndRecord)
{
    struct Row {
        std::string_view what;
        std::vector<std::pair<World::Time, std::string>> answer;
        std::string record;
        std::string logged;
    };
    const Row rows[] = {
        {"at once", {{1ms, "AM\r\n" + kRecord}}, kRecord, ""},
        {"in the third read", {{700ms, "AM\r\n" + kRecord}}, kRecord, ""},
        {"too late", {{901ms, "AM\r\n" + kRecord}}, "", "M Command,AM\r\n, 4\r\n"},
        {"nothing", {}, "", "M Command,, 4\r\n"},
        {"the record later", {{1ms, "AM\r\n"}, {301ms, kRecord}}, "", "M Command,, 100\r\n"},
        {"a shorter record", {{1ms, "AM\r\n24/5/1 09:30:05\r\n"}}, "", "M Command,, 100\r\n"},
        {"noise, then right", {{1ms, "AM\r\n2024/05/01 09:30:05\n\n" + kRecord}}, kRecord, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ClockWorld with;
        for (const auto& [delay, bytes] : row.answer)
            with.port.Deliver(delay, bytes);
        EXPECT_EQ(with.clock.ReadInstrumentClock(kComputer), row.record);
        EXPECT_EQ(with.port.sent, std::vector<std::string>{"M\r\n"});
        EXPECT_EQ(with.port.Waiting(), 0);
        EXPECT_EQ(with.LoggedErrors(), row.logged);
        EXPECT_TRUE(with.prompts.messages.empty());
    }
    EXPECT_EQ(CutClockRecord(kRecord).date, "2024/05/01");
    EXPECT_EQ(CutClockRecord(kRecord).time, "09:30:05");
    EXPECT_EQ(CutClockRecord("").date + CutClockRecord("").time, "");
}

TEST(InstrumentClock, IsSilentWithoutAPortAndWithoutAnInstrument)
{
    LinkWorld with;
    InstrumentClock clock{with.state, with.link, with.port, with.log};
    EXPECT_EQ(clock.ReadInstrumentClock(kComputer), "");
    EXPECT_TRUE(with.port.sent.empty());
    with.state.RunMode = false;
    EXPECT_EQ(clock.ReadInstrumentClock(kComputer), "2024/05/01;09:30:00");
    EXPECT_EQ(with.LoggedErrors(), "");
    EXPECT_EQ(with.world.Elapsed(), 0ms);

    ClockWorld lost;
    lost.world.After(50ms, [&] { lost.port.Vanish(); });
    EXPECT_EQ(lost.clock.ReadInstrumentClock(kComputer), "");
    EXPECT_EQ(lost.clock.ReadInstrumentClock(kComputer), "");
    EXPECT_EQ(lost.LoggedErrors(), "M Command,, 0\r\n") << "once";
}

TEST(InstrumentClock, DropsTheAnswerToAReadThatWasCancelled)
{
    ClockWorld with;
    with.clock.DropLateAnswer();
    EXPECT_EQ(with.world.Elapsed(), 0ms) << "no answer is missing";

    with.world.After(100ms, [&] { with.link.Cancel(); });
    with.port.Deliver(400ms, "AM\r\n");
    with.port.Deliver(500ms, kRecord);
    EXPECT_EQ(with.clock.ReadInstrumentClock(kComputer), "");
    EXPECT_EQ(with.LoggedErrors(), "");
    with.clock.DropLateAnswer();
    EXPECT_EQ(with.world.Elapsed(), 700ms) << "a first round, and one for the rest"; // 100 + 2 * 300
    EXPECT_EQ(with.port.Waiting(), 0);

    with.world.After(100ms, [&] { with.link.Cancel(); });
    EXPECT_EQ(with.clock.ReadInstrumentClock(kComputer), "");
    with.world.After(100ms, [&] { with.link.Cancel(); });
    with.clock.DropLateAnswer();
    const World::Time before = with.world.Elapsed();
    with.clock.DropLateAnswer();
    EXPECT_EQ(with.world.Elapsed() - before, 1200ms) << "the answer never comes";
    with.clock.DropLateAnswer();
    EXPECT_EQ(with.world.Elapsed() - before, 1200ms);
}

} // namespace
} // namespace quorvane
