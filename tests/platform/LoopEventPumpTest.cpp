#include "platform/LoopEventPump.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using std::chrono::steady_clock;
using testing::Each;
using testing::ElementsAre;
using testing::Le;

/// In these tests time passes only by sleeping and by what a test lets pass.
struct LoopEventPumpTest : testing::Test {
    nanoseconds now{};
    std::vector<nanoseconds> naps;
    nanoseconds longestSleep = 1h; ///< a sleep may end early
    std::vector<std::string> events;
    LoopEventPump pump{{[this] { return steady_clock::time_point(now); },
                        [this](steady_clock::time_point until) {
                            naps.push_back(std::min(until.time_since_epoch() - now, longestSleep));
                            now += naps.back();
                        }}};

    static void Start(LoopTimer& timer, milliseconds interval, std::function<void()> handler)
    {
        timer.SetInterval(interval);
        timer.OnTick(std::move(handler));
        timer.Enable();
    }
    /// Makes a timer write its name and the milliseconds so far.
    void Record(LoopTimer& timer, const std::string& name, milliseconds interval)
    {
        Start(timer, interval, [this, name] { Note(name); });
    }
    void Note(const std::string& name) { events.push_back(name + std::to_string(now / 1ms)); }
};

TEST_F(LoopEventPumpTest, ServesTheFullTimeInShortNaps)
{
    EXPECT_TRUE(pump.Serve(95ms));
    EXPECT_EQ(now, 95ms);
    EXPECT_THAT(naps, Each(Le(20ms)));
    longestSleep = 3ms;
    EXPECT_TRUE(pump.Serve(10ms));
    EXPECT_EQ(now, 105ms) << "a sleep that ends early is slept on";
    EXPECT_TRUE(pump.Serve(-5ms));
    EXPECT_EQ(now, 105ms);
}

TEST_F(LoopEventPumpTest, TicksComeInTheOrderOfTheirDueTimesWithoutDrift)
{
    LoopTimer slow(pump);
    LoopTimer fast(pump);
    LoopTimer same(pump);
    Record(slow, "slow", 70ms);
    Record(fast, "fast", 30ms);
    Record(same, "same", 30ms);
    EXPECT_TRUE(pump.Serve(70ms));
    now += 25ms; // held up; lateness below a period does not move the grid
    EXPECT_TRUE(pump.Serve(25ms));
    EXPECT_THAT(events, ElementsAre("fast30", "same30", "fast60", "same60", "slow70", "fast95", "same95",
                                    "fast120", "same120"));
}

TEST_F(LoopEventPumpTest, TimersObeyTheirSwitches)
{
    LoopTimer timer(pump);
    Record(timer, "t", 50ms);
    EXPECT_TRUE(pump.Serve(40ms));
    timer.Enable(); // a wait enables its timer on every pass
    EXPECT_TRUE(pump.Serve(20ms));
    EXPECT_THAT(events, ElementsAre("t50"));
    timer.SetInterval(50ms); // at 60: a new period
    EXPECT_TRUE(pump.Serve(50ms));
    EXPECT_THAT(events, ElementsAre("t50", "t110"));
    timer.Disable();
    EXPECT_FALSE(timer.Enabled());
    EXPECT_TRUE(pump.Serve(1s));
    timer.Enable(); // at 1110
    EXPECT_TRUE(pump.Serve(50ms));
    EXPECT_THAT(events, ElementsAre("t50", "t110", "t1160"));
}

TEST_F(LoopEventPumpTest, AHandlerMayServeAndIsNotEnteredAgain)
{
    LoopTimer other(pump);
    LoopTimer outer(pump);
    Record(other, "other", 10ms);
    Start(outer, 10ms, [this] {
        Note("begin");
        EXPECT_TRUE(pump.Serve(25ms));
        Note("end");
    });
    EXPECT_TRUE(pump.Serve(45ms));
    // The outer timer's ticks at 20 and 30 fall into its own handler and are left out.
    EXPECT_THAT(events, ElementsAre("other10", "begin10", "other20", "other30", "end35", "other40", "begin40",
                                    "other50", "other60", "end65"));
}

TEST_F(LoopEventPumpTest, ALateTimerDoesNotBurst)
{
    LoopTimer timer(pump);
    Record(timer, "t", 10ms);
    now += 57ms;
    EXPECT_TRUE(pump.Serve(13ms));
    EXPECT_THAT(events, ElementsAre("t57", "t60", "t70"));
}

TEST_F(LoopEventPumpTest, HandlersSlowerThanTheirTimersStillLetTheServingEnd)
{
    LoopTimer timer(pump);
    LoopTimer other(pump);
    for (LoopTimer* each : {&timer, &other})
        Start(*each, 10ms, [this] {
            now += 35ms;
            if (now > 1h)
                pump.Close();
        });
    EXPECT_TRUE(pump.Serve(100ms)) << "closed by force";
}

TEST_F(LoopEventPumpTest, SpeedShortensIntervalsToTheNanosecond)
{
    LoopTimer timer(pump, 7.0);
    int ticks = 0;
    Start(timer, 3ms, [&] { ++ticks; });
    EXPECT_TRUE(pump.Serve(3s)); // 3 ms / 7 = 428571 ns; 3 s / 428571 ns = 7000.007
    EXPECT_EQ(ticks, 7000);
}

TEST_F(LoopEventPumpTest, ClosingEndsEveryServing)
{
    LoopTimer timer(pump);
    LoopTimer closer(pump);
    LoopTimer tooLate(pump);
    Start(timer, 30ms, [this] { EXPECT_FALSE(pump.Serve(1h)); });
    Start(closer, 45ms, [this] { pump.Close(); });
    Record(tooLate, "too late", 45ms);
    EXPECT_FALSE(pump.Serve(1h));
    EXPECT_EQ(now, 45ms);
    EXPECT_THAT(events, ElementsAre());
    EXPECT_FALSE(pump.Serve(1h));
    EXPECT_EQ(now, 45ms) << "at once";
}

TEST_F(LoopEventPumpTest, TheIdleHookLooksOftenAndNeverInsideItself)
{
    int looks = 0;
    int depth = 0;
    pump.OnIdle([&] {
        EXPECT_EQ(++depth, 1);
        if (++looks == 3) {
            EXPECT_TRUE(pump.Serve(5ms));
        }
        if (now >= 200ms)
            pump.Close();
        --depth;
    });
    EXPECT_FALSE(pump.Serve(1h));
    EXPECT_LE(now, 220ms);
    EXPECT_GE(looks, 10);
}

TEST_F(LoopEventPumpTest, AHandlerMayReplaceItselfRestartItsTimerAndEndIt)
{
    auto victim = std::make_unique<LoopTimer>(pump);
    auto self = std::make_unique<LoopTimer>(pump);
    std::unique_ptr<LoopTimer> made;
    Record(*victim, "victim", 30ms);
    const std::string longName(100, 'n'); // part of each handler: dies with it, and is used after that
    Start(*self, 10ms, [&, longName] {
        now += 4ms;
        self->Disable();
        Start(*self, 20ms, [&, longName] {
            victim.reset();
            self.reset();
            made = std::make_unique<LoopTimer>(pump);
            Record(*made, "made", 10ms);
            Note(longName.substr(0, 2));
        });
        Note(longName.substr(0, 1));
    });
    EXPECT_TRUE(pump.Serve(45ms));
    EXPECT_THAT(events, ElementsAre("n14", "victim30", "nn34", "made44"));
}

TEST(LoopEventPumpRealTime, WaitsAtLeastTheFullTime)
{
    const auto start = steady_clock::now();
    EXPECT_TRUE(LoopEventPump().Serve(3ms));
    EXPECT_GE(steady_clock::now() - start, 3ms);
}

} // namespace
} // namespace quorvane
