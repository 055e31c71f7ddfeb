#include "tests/support/RunWorld.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

/// What happens to the computer behind the second of five readings, and the gap that the run then has.
struct ClockRow {
    const char* what;
    std::function<void(World&)> happens;
    std::vector<GapKind> kinds;
    std::chrono::seconds length; ///< from the one time shown to the other
};

TEST(ClockWatch, MarksWhatTheClocksTellInFrontOfTheNextReading)
{
    const ClockRow rows[] = {
        {"nothing", [](World&) {}, {}, 0s},
        {"ten seconds asleep", [](World& world) { world.Sleep(10s); }, {GapKind::Standstill}, 10s},
        {"a night asleep", [](World& world) { world.Sleep(9h); }, {GapKind::Standstill}, 9h},
        {"a hiccup", [](World& world) { world.Sleep(9s); }, {}, 0s},
        {"asleep, and the clock set on waking",
         [](World& world) {
             world.Sleep(60s);
             world.SetClock(5s);
         },
         {GapKind::Standstill},
         65s},
        {"clock set on", [](World& world) { world.SetClock(2s); }, {GapKind::ClockSet}, 2s},
        {"clock set back", [](World& world) { world.SetClock(-24h); }, {GapKind::ClockSet}, -24h},
        {"a time server's correction", [](World& world) { world.SetClock(-1900ms); }, {}, 0s},
        {"daylight saving begins", [](World& world) { world.ShiftZone(1h); }, {}, 0s},
        {"daylight saving ends", [](World& world) { world.ShiftZone(-1h); }, {}, 0s},
    };
    for (const ClockRow& row : rows) {
        SCOPED_TRACE(row.what);
        RunWorld world;
        const LocalMoment start = world.world.Now();
        world.state.TotalSamples = 5;
        world.GiveLines(5);
        world.listener.onSample = [&](int sample) {
            if (sample == 2)
                row.happens(world.world);
        };
        EXPECT_EQ(world.run.Start(), RunResult::Completed);
        const std::vector<RunGap>& gaps = world.arrays.Gaps;
        ASSERT_EQ(gaps.size(), row.kinds.size());
        EXPECT_EQ(world.state.SampleCount, 5) << "a gap is no reading";
        for (int i = 1; i <= 5; ++i)
            EXPECT_EQ(world.arrays.Moment.at(static_cast<std::size_t>(i)), start + std::chrono::seconds(i))
                << "the instrument's time";
        if (gaps.empty())
            continue;
        EXPECT_EQ(gaps[0].kind, row.kinds[0]);
        EXPECT_EQ(gaps[0].before, 3);
        const auto off = (gaps[0].to - gaps[0].from) - row.length;
        EXPECT_TRUE(off >= 0s && off <= 1s) << off.count(); // looks lie some milliseconds apart
    }
}

TEST(ClockWatch, TheComputerIsKeptAwakeWhileTheRunMeasures)
{
    struct Awake : KeepAwake {
        void Hold() override { ++held; }
        void Release() override { --held; }
        int held = 0;
    } awake;
    RunWorld world;
    RunServices services = world.Services([] { return 0.5; });
    services.keepAwake = &awake;
    MeasurementRun run(
        world.state, world.arrays, services, [] {}, world.listener);
    world.state.TotalSamples = 2;
    world.GiveLines(2);
    world.listener.onSample = [&](int) { EXPECT_EQ(awake.held, 1); };
    EXPECT_EQ(run.Start(), RunResult::Completed);
    EXPECT_EQ(awake.held, 0);
    world.answersLinkChecks = false;
    EXPECT_EQ(run.Start(), RunResult::LinkFailed);
    EXPECT_EQ(awake.held, 0);
}

} // namespace
} // namespace quorvane
