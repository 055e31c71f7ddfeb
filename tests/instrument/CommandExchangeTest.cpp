#include "instrument/CommandExchange.h"

#include "tests/support/LinkWorld.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using enum ExchangeOutcome;

const InstrumentCommand kProgram{
    .letter = 'P', .parameters = "2024", .waiting = InstrumentCommand::Waiting::BeforeFirstRead};
const InstrumentCommand kClock{.letter = 'T', .parameters = "2024", .clearInputFirst = true};
const InstrumentCommand kFactor{.letter = 'E', .parameters = "1.2"};

struct Bytes {
    World::Time after; ///< the request
    std::string bytes;
};

/// The port is open; a link check is answered when the row wants it.
struct ExchangeWorld : LinkWorld {
    explicit ExchangeWorld(std::vector<Bytes> answer = {}, bool linkAnswers = true)
    {
        port.onOutput = [this, answer, linkAnswers](const std::string& text) {
            if (text == "N\r\n" && linkAnswers)
                port.Deliver(20ms, "AN\r\n");
            if (text == "N\r\n")
                return;
            EXPECT_EQ(port.inputLen, 4);
            for (const Bytes& part : answer)
                port.Deliver(part.after, part.bytes);
        };
        EXPECT_TRUE(link.OpenPort());
    }
    CommandExchange exchange{state, link, port, log};
};

TEST(CommandExchange, LooksAtThreeReadsAndLogsWhatFails)
{
    struct Row {
        std::string_view what;
        const InstrumentCommand& command;
        std::string waiting; ///< in the port before
        std::vector<Bytes> answer;
        World::Time endsAt; ///< the time of the read that brings it, when one does
        std::string logged;
    };
    const Row rows[] = {
        {"read 1", kFactor, "", {{299ms, "AE\r\n"}}, 300ms, ""},
        {"read 2", kFactor, "", {{301ms, "AE\r\n"}}, 600ms, ""},
        {"read 3", kFactor, "", {{899ms, "AE\r\n"}}, 900ms, ""},
        {"read 4: meant", kFactor, "", {{901ms, "AE\r\n"}}, 0ms, "E Command,AE\r\n, 4\r\n"},
        {"another command's, once", kFactor, "", {{9ms, "AN\r\n"}, {9ms, "AE\r\n"}}, 600ms, ""},
        {"another command's", kFactor, "AN\r\nAT\r\nAN\r\nAT\r\n", {}, 0ms, "E Command,AT\r\n, 4\r\n"},
        {"no line end", kFactor, "", {{301ms, "AE\n\n"}, {901ms, "AE1."}}, 0ms, "E Command,AE1., 4\r\n"},
        {"two pieces", kFactor, "", {{99ms, "AE\r"}, {399ms, "\n"}}, 600ms, ""},
        {"late from the command before", kFactor, "AT\r\n", {{9ms, "AE\r\n"}}, 600ms, ""},
        {"the clock drops what waits", kClock, "AT\r\n", {}, 0ms, "T Command,, 4\r\n"},
        {"the clock's own", kClock, "AE\r\n", {{9ms, "AT\r\n"}}, 300ms, ""},
        {"a program takes its time", kProgram, "", {{1999ms, "AP\r\n"}}, 2000ms, ""},
        {"its reads have no waits", kProgram, "AE\r\nAT\r\n", {{9ms, "AP\r\n"}}, 2000ms, ""},
        {"its read 4", kProgram, "AE\r\nAE\r\nAE\r\nAP\r\n", {}, 0ms, "P Command,AP\r\n, 4\r\n"},
        {"too late", kProgram, "", {{99ms, "AP\r"}, {2001ms, "\n"}}, 0ms, "P Command,, 4\r\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ExchangeWorld with(row.answer);
        with.port.Arrive(row.waiting);
        EXPECT_EQ(with.exchange.Send(row.command), row.logged.empty() ? Completed : Failed);
        EXPECT_EQ(with.port.sent[0], row.command.Text() + "\r\n");
        EXPECT_EQ(with.LoggedErrors(), row.logged);
        if (row.logged.empty())
            EXPECT_EQ(with.world.Elapsed(), row.endsAt);
        else
            EXPECT_EQ(with.port.inputLen, 0);
    }
}

TEST(CommandExchange, LogsTheLinkCheckBeforeTheCommand)
{
    ExchangeWorld silent({}, false);
    EXPECT_EQ(silent.exchange.Send(kFactor), Failed);
    EXPECT_EQ(silent.port.sent, (std::vector<std::string>{"E1.2\r\n", "N\r\n", "N\r\n"}));
    EXPECT_EQ(silent.LoggedErrors(), "N Command,, 101\r\nE Command,, 4\r\n");

    ExchangeWorld lost;
    lost.world.After(100ms, [&] { lost.port.Vanish(); });
    EXPECT_EQ(lost.exchange.Send(kProgram), Failed);
    EXPECT_LE(lost.world.Elapsed(), 120ms);
    EXPECT_EQ(lost.LoggedErrors(), "N Command,, 0\r\nP Command,, 0\r\n");

    ExchangeWorld refusing;
    refusing.port.refuseOutput = true;
    EXPECT_EQ(refusing.exchange.Send(kClock), Failed);
    EXPECT_EQ(refusing.LoggedErrors(), "N Command,, 0\r\nT Command,, 0\r\n");
}

TEST(CommandExchange, EndsWithoutAMessageWhenItIsEnded)
{
    ExchangeWorld ended;
    ended.world.After(100ms, [&] { ended.link.Cancel(); });
    EXPECT_EQ(ended.exchange.Send(kFactor), Cancelled);
    EXPECT_EQ(ended.LoggedErrors(), "");

    ended.world.After(1300ms, [&] { ended.world.Close(); }); // in the link check behind the fourth read
    EXPECT_EQ(ended.exchange.Send(kFactor), Cancelled);
    EXPECT_EQ(ended.LoggedErrors(), "E Command,, 4\r\n") << "it had failed";

    ExchangeWorld debug;
    debug.state.RunMode = false;
    EXPECT_EQ(debug.exchange.Send(kFactor), Completed);
    EXPECT_TRUE(debug.port.sent.empty());
    EXPECT_EQ(debug.world.Elapsed(), 0ms);
}

} // namespace
} // namespace quorvane
