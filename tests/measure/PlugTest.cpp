#include "tests/support/RunWorld.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

constexpr LocalMoment kStart = std::chrono::local_days(std::chrono::year(2024) / 5 / 1) + 9h + 30min;
const PortDescription kAdapter{"FTDI", "FT232R", "A1", "1-2", "1.0"};

/// Bytes of the instrument, so long after D.
struct Chunk {
    milliseconds at;
    std::string bytes;
};
/// The plug is out from .. to .., so long after D.
struct Pull {
    milliseconds out;
    milliseconds in;
};

struct PlugWorld : RunWorld {
    World::Time requested{}; ///< when D was sent
    std::function<void()> onRequest;

    PlugWorld() : RunWorld(kAdapter)
    {
        port.onOutput = [this, answer = port.onOutput](const std::string& text) {
            answer(text);
            if (text != "D\r\n")
                return;
            requested = world.Elapsed();
            if (onRequest)
                onRequest();
        };
    }
    [[nodiscard]] std::ptrdiff_t Requests() const { return std::ranges::count(port.sent, "D\r\n"); }
    [[nodiscard]] std::vector<std::string> Taken() const
    {
        return {arrays.ReplyLine.begin() + 1, arrays.ReplyLine.begin() + 1 + state.SampleCount};
    }
};

std::string L(int second)
{
    return InstrumentWorld::Line(second);
}

/// A gap that begins and ends so long after D.
struct Gap {
    std::int32_t before;
    milliseconds out;
    milliseconds in;
};

/// A loss is noticed within 50 ms, a return at the next look behind it.
void ExpectGap(const PlugWorld& with, const RunGap& gap, const Gap& expected)
{
    const auto shown = [&](milliseconds after) {
        return kStart + std::chrono::floor<std::chrono::seconds>(with.requested + after);
    };
    EXPECT_EQ(gap.before, expected.before);
    EXPECT_EQ(gap.kind, GapKind::PortLost);
    EXPECT_GE(gap.from, shown(expected.out));
    EXPECT_LE(gap.from, shown(expected.out + 50ms));
    EXPECT_GE(gap.to, shown(expected.in));
    EXPECT_LE(gap.to, shown(expected.in + 550ms));
}

TEST(Plug, TheRunGoesOnBehindTheFirstLineEndOfTheReturn)
{
    struct Row {
        std::string_view what;
        std::string acknowledgement;
        std::vector<Chunk> chunks;
        std::vector<Pull> pulls;
        std::vector<std::string> taken;
        std::vector<Gap> gaps;
        std::string log;
    };
    const std::string kLoss = "D Command Data Read,";
    const Row rows[] = {
        {"in the middle of a line",
         "AD\r\n",
         {{1s, L(1)}, {2s, L(2).substr(0, 12)}, {4100ms, L(4).substr(9)}, {5s, L(5)}, {6s, L(6)}},
         {{2100ms, 3100ms}},
         {L(1), L(5), L(6)},
         {{2, 2100ms, 3100ms}},
         kLoss + "09:30:02;000, 0\r\n"},
        {"in the middle of a line that is being read",
         "AD\r\n",
         {{1s, L(1)}, {2s, L(2).substr(0, 29)}, {4s, L(4)}, {5s, L(5)}, {6s, L(6)}},
         {{2030ms, 3100ms}},
         {L(1), L(5), L(6)},
         {{2, 2100ms, 3100ms}},
         kLoss + L(2).substr(0, 29)},
        {"at the end of a line, and again at the beginning of one, which is lost",
         "AD\r\n",
         {{1s, L(1)}, {2s, L(2)}, {4100ms, L(4)}, {5s, L(5)}},
         {{2100ms, 3100ms}},
         {L(1), L(2), L(5)},
         {{3, 2100ms, 3100ms}},
         kLoss + ", 0\r\n"},
        {"with whole lines that nobody has read yet",
         "AD\r\n",
         {{1s, L(1) + L(2) + L(3) + "09:3"}, {2100ms, "2\r\n"}, {3s, L(6)}, {4s, L(7)}},
         {{1100ms, 1200ms}},
         {L(1), L(2), L(3), L(6), L(7)},
         {{4, 1100ms, 1200ms}},
         kLoss + "09:3, 0\r\n"},
        {"before the acknowledgement",
         "",
         {{2s, L(2)}, {3s, L(3)}, {4s, L(4)}},
         {{10ms, 1100ms}},
         {L(3), L(4)},
         {{1, 10ms, 1100ms}},
         kLoss + ", 0\r\n"},
        {"behind the acknowledgement and a line",
         "",
         {{100ms, "AD\r\n" + L(1) + "0"}, {2s, L(2)}, {3s, L(3)}},
         {{200ms, 1100ms}},
         {L(1), L(3)},
         {{2, 200ms, 1100ms}},
         kLoss + "0, 0\r\n"},
        {"while the line is awaited",
         "AD\r\n",
         {{1s, L(1)}, {4s, L(4)}, {5s, L(5)}},
         {{2500ms, 3100ms}},
         {L(1), L(5)},
         {{2, 2500ms, 3100ms}},
         kLoss + ", 0\r\n"},
        {"the return comes in pieces, its line end in two",
         "AD\r\n",
         {{1s, L(1)},
          {4s, "12;001.250"},
          {4200ms, ";1.2\r"},
          {4400ms, "\n" + L(5).substr(0, 5)},
          {4450ms, L(5).substr(5)},
          {5s, L(6)}},
         {{2100ms, 3100ms}},
         {L(1), L(5), L(6)},
         {{2, 2100ms, 3100ms}},
         kLoss + ", 0\r\n"},
        {"an acknowledgement behind the first line end is left out, and none is waited for",
         "AD\r\n",
         {{1s, L(1)}, {4s, "1.2\r\nAD\r\n"}, {5s, L(5)}},
         {{2100ms, 3100ms}},
         {L(1), L(5)},
         {{2, 2100ms, 3100ms}},
         kLoss + ", 0\r\n"},
        {"gone again before the first line end: one gap",
         "AD\r\n",
         {{1s, L(1)}, {4s, "12;001."}, {7s, L(7)}, {8s, L(8)}},
         {{2100ms, 3100ms}, {4100ms, 6100ms}},
         {L(1), L(8)},
         {{2, 2100ms, 6100ms}},
         kLoss + ", 0\r\n" + kLoss + ", 0\r\n"},
        {"gone again with unread lines from in between",
         "AD\r\n",
         {{1s, L(1)}, {4s, "\r\n" + L(4) + L(5) + "09"}, {6s, L(6)}, {7s, L(7)}},
         {{2100ms, 3100ms}, {4100ms, 5100ms}},
         {L(1), L(4), L(5), L(7)},
         {{2, 2100ms, 3100ms}, {4, 4100ms, 5100ms}},
         kLoss + ", 0\r\n" + kLoss + "09, 0\r\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        PlugWorld with;
        with.acknowledgement = row.acknowledgement;
        with.state.TotalSamples = static_cast<double>(row.taken.size());
        with.onRequest = [&] {
            for (const Chunk& chunk : row.chunks)
                with.port.Deliver(chunk.at, chunk.bytes);
            for (const Pull& pull : row.pulls) {
                with.world.After(pull.out, [&] { with.PullOut(); });
                with.world.After(pull.in, [&] { with.PlugIn(kAdapter); });
            }
        };
        with.listener.onSample = [&](int sample) {
            const auto before =
                std::ranges::count_if(row.gaps, [&](const Gap& gap) { return gap.before <= sample; });
            EXPECT_EQ(with.arrays.Gaps.size(), static_cast<std::size_t>(before)) << "as it is told of";
        };
        with.world.After(1min, [&] { with.run.Stop(); });
        EXPECT_EQ(with.run.Start(), RunResult::Completed);
        EXPECT_EQ(with.Taken(), row.taken);
        ASSERT_EQ(with.arrays.Gaps.size(), row.gaps.size());
        for (std::size_t i = 0; i < row.gaps.size(); ++i)
            ExpectGap(with, with.arrays.Gaps[i], row.gaps[i]);
        EXPECT_TRUE(with.LoggedErrors().starts_with(row.log)) << with.LoggedErrors();
        EXPECT_EQ(with.Requests(), 1);
        EXPECT_EQ(with.port.sent.back(), "N\r\n") << "the stop exchange goes to the port that is back";
        EXPECT_TRUE(with.prompts.messages.empty());
    }
}

TEST(Plug, StopEndsTheWaitAtOnce)
{
    struct Row {
        std::string_view what;
        std::function<void(PlugWorld&)> meanwhile;
        bool back;   ///< by the time of the stop
        int stopped; ///< seconds after D
    };
    const Row rows[] = {
        {"nothing came", [](PlugWorld&) {}, false, 600},
        {"before the first look", [](PlugWorld&) {}, false, 3},
        {"another adapter came",
         [](PlugWorld& with) {
             with.PlugIn({"FTDI", "FT232R", "A2", "1-2", "1.0"});
         },
         false, 60},
        {"it came and may not be used yet",
         [](PlugWorld& with) {
             with.port.openFault = PortFault{PortFaultKind::NoPermission, {}};
             with.PlugIn(kAdapter);
         },
         false, 60},
        {"it may be used at the third look",
         [](PlugWorld& with) {
             with.port.openFault = PortFault{PortFaultKind::NoPermission, {}};
             with.PlugIn(kAdapter);
             with.world.After(1200ms, [&] { with.port.openFault.reset(); });
         },
         true, 60},
        {"it came and sends no line end", [](PlugWorld& with) { with.PlugIn(kAdapter); }, true, 60},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        PlugWorld with;
        with.lines = {L(1), L(2)};
        const World::Time out = 2900ms;
        World::Time stop{};
        with.onRequest = [&] {
            with.world.After(out, [&] { with.PullOut(); });
            with.world.After(out + 60ms, [&] {
                EXPECT_TRUE(with.run.Status().portLost);
                EXPECT_EQ(with.run.Status().portLostSince, with.world.Now());
                row.meanwhile(with);
            });
            with.world.After(std::chrono::seconds(row.stopped), [&] {
                EXPECT_EQ(with.run.Status().portLost, !row.back);
                stop = with.world.Elapsed();
                with.run.Stop();
            });
        };
        EXPECT_EQ(with.run.Start(), RunResult::Stopped);
        EXPECT_EQ(with.port.opened, row.back ? 2 : 1);
        if (!row.back) {
            EXPECT_LE(with.world.Elapsed() - stop, 50ms) << "no stop exchange without a port";
        }
        EXPECT_EQ(with.port.sent.back() == "N\r\n", row.back);
        EXPECT_FALSE(with.port.IsOpen());
        ASSERT_EQ(with.arrays.Gaps.size(), 1U) << "the gap behind the last reading";
        EXPECT_EQ(with.arrays.Gaps[0].before, 3);
        EXPECT_EQ(with.Requests(), 1);
        EXPECT_TRUE(with.prompts.messages.empty());
    }
}

TEST(Plug, MayBePulledAtAnyMoment)
{
    bool happened = true;
    for (long k = 1; happened; ++k) {
        SCOPED_TRACE(k);
        PlugWorld with;
        with.world.pumpLimit = 4000;
        with.state.TotalSamples = 2;
        with.interval = 400ms; // so that there are lines that nobody has read yet
        with.GiveLines(100);
        happened = false;
        RunState state{};
        with.world.onPump = [&](long pump) {
            if (pump != k)
                return;
            happened = true;
            state = with.run.State();
            with.PullOut();
            with.world.After(700ms, [&] { with.PlugIn(kAdapter); });
            with.world.After(30s, [&] { with.run.Stop(); }); // D may have found no port
        };
        const RunResult result = with.run.Start();
        if (state != RunState::Measuring)
            continue;
        EXPECT_EQ(result, with.Requests() == 1 ? RunResult::Completed : RunResult::Stopped);
        EXPECT_LE(with.Requests(), 1);
        EXPECT_EQ(with.run.Status().taken, result == RunResult::Completed ? 2 : 0);
        const std::vector<RunGap>& gaps = with.arrays.Gaps;
        EXPECT_LE(gaps.size(), 1U);
        const std::vector<std::string> taken = with.Taken();
        EXPECT_EQ(std::ranges::adjacent_find(taken, std::ranges::greater_equal{}), taken.end()) << "twice";
        if (!taken.empty() && (gaps.empty() || gaps[0].before != 2)) {
            EXPECT_FALSE(std::ranges::search(with.lines, taken).empty()) << "one in between is missing";
        }
        EXPECT_TRUE(with.prompts.messages.empty());
    }
}

TEST(Plug, WhatComesWithASecondLossEndsTheLineThatIsDropped)
{
    PlugWorld with;
    with.onRequest = [&] {
        with.port.Deliver(1s, L(1));
        with.world.After(1500ms, [&] { with.PullOut(); });
        with.world.After(1600ms, [&] { with.PlugIn(kAdapter); });
        with.world.After(3s, [&] {
            with.ports.plugged.clear();
            with.port.VanishWhileReading(";0000002;002.000;1.2\r\n" + L(3));
            with.port.Arrive("09:30:02");
        });
        with.world.After(4s, [&] { with.PlugIn(kAdapter); });
        for (int second = 5; second < 8; ++second)
            with.port.Deliver(std::chrono::seconds(second), L(second));
    };
    EXPECT_EQ(with.run.Start(), RunResult::Completed);
    EXPECT_EQ(with.Taken(), (std::vector{L(1), L(3), L(6)}));
}

} // namespace
} // namespace quorvane
