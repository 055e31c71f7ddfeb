#include "platform/LoopEventPump.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace quorvane::test {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using std::chrono::steady_clock;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Le;

/// Time that passes only by sleeping and by what a test lets pass.
struct VirtualTime {
    steady_clock::time_point now{1h};
    std::vector<nanoseconds> naps;
    nanoseconds longestSleep = 1h; ///< a sleep may end early

    LoopTime Hooks()
    {
        return {[this] { return now; },
                [this](steady_clock::time_point until) {
                    const nanoseconds nap = std::min<nanoseconds>(until - now, longestSleep);
                    naps.push_back(nap);
                    now += nap;
                }};
    }
    [[nodiscard]] milliseconds Passed() const
    {
        return std::chrono::duration_cast<milliseconds>(now - steady_clock::time_point(1h));
    }
};

struct LoopEventPumpTest : ::testing::Test {
    VirtualTime time;
    LoopEventPump pump{time.Hooks()};
    std::vector<std::string> events;

    /// Makes a timer write its name and the milliseconds so far.
    void Record(LoopTimer& timer, const std::string& name, milliseconds interval)
    {
        timer.SetInterval(interval);
        timer.OnTick([this, name] { Note(name); });
        timer.Enable();
    }
    void Note(const std::string& name) { events.push_back(name + std::to_string(time.Passed().count())); }
};

TEST_F(LoopEventPumpTest, ServesTheFullTimeInShortNaps)
{
    EXPECT_TRUE(pump.Serve(95ms));
    EXPECT_EQ(time.Passed(), 95ms);
    EXPECT_EQ(time.naps.size(), 5U);
    EXPECT_THAT(time.naps, Each(Le(20ms)));

    time.longestSleep = 3ms;
    EXPECT_TRUE(pump.Serve(10ms));
    EXPECT_EQ(time.Passed(), 105ms) << "a sleep that ends early is slept on";
    EXPECT_TRUE(pump.Serve(-5ms));
    EXPECT_EQ(time.Passed(), 105ms);
}

TEST_F(LoopEventPumpTest, TicksComeInTheOrderOfTheirDueTimes)
{
    LoopTimer slow(pump);
    LoopTimer fast(pump);
    LoopTimer same(pump);
    Record(slow, "slow", 70ms);
    Record(fast, "fast", 30ms);
    Record(same, "same", 30ms);
    EXPECT_TRUE(pump.Serve(70ms));
    EXPECT_THAT(events, ElementsAre("fast30", "same30", "fast60", "same60", "slow70"));
    events.clear();
    time.now += 25ms; // held up: 25 ms late for the one, 5 ms for the others
    EXPECT_TRUE(pump.Serve(0ms));
    EXPECT_THAT(events, ElementsAre("fast95", "same95"));
    EXPECT_TRUE(pump.Serve(25ms));
    EXPECT_EQ(events[2], "fast120") << "lateness below a period does not move the grid";
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
    EXPECT_TRUE(pump.Serve(49ms));
    EXPECT_EQ(events.size(), 1U);
    EXPECT_TRUE(pump.Serve(1ms));
    EXPECT_THAT(events, ElementsAre("t50", "t110"));
    timer.Disable();
    EXPECT_FALSE(timer.Enabled());
    EXPECT_TRUE(pump.Serve(1s));
    EXPECT_EQ(events.size(), 2U);
    timer.Enable(); // at 1110
    EXPECT_TRUE(pump.Serve(50ms));
    EXPECT_THAT(events, ElementsAre("t50", "t110", "t1160"));
}

TEST_F(LoopEventPumpTest, AHandlerMayServeAndIsNotEnteredAgain)
{
    LoopTimer other(pump);
    LoopTimer outer(pump);
    Record(other, "other", 10ms);
    outer.SetInterval(10ms);
    outer.OnTick([&] {
        Note("begin");
        EXPECT_TRUE(pump.Serve(25ms));
        Note("end");
    });
    outer.Enable();
    EXPECT_TRUE(pump.Serve(45ms));
    // The outer timer's ticks at 20 and 30 fall into its own handler and are left out.
    EXPECT_THAT(events, ElementsAre("other10", "begin10", "other20", "other30", "end35", "other40", "begin40",
                                    "other50", "other60", "end65"));
}

TEST_F(LoopEventPumpTest, ALateTimerDoesNotBurst)
{
    LoopTimer timer(pump);
    Record(timer, "t", 10ms);
    time.now += 57ms;
    EXPECT_TRUE(pump.Serve(0ms));
    EXPECT_THAT(events, ElementsAre("t57"));
    EXPECT_TRUE(pump.Serve(13ms));
    EXPECT_THAT(events, ElementsAre("t57", "t60", "t70"));
}

TEST_F(LoopEventPumpTest, HandlersSlowerThanTheirTimerStillLetTheServingEnd)
{
    LoopTimer timer(pump);
    timer.SetInterval(10ms);
    timer.OnTick([&] { time.now += 35ms; });
    timer.Enable();
    EXPECT_TRUE(pump.Serve(100ms));
    EXPECT_LE(time.Passed(), 135ms);
}

TEST_F(LoopEventPumpTest, PacingKeepsItsAverage)
{
    LoopTimer timer(pump);
    int ticks = 0;
    timer.SetInterval(1000ms);
    timer.OnTick([&] {
        ++ticks;
        time.now += 300ms;
    });
    timer.Enable();
    EXPECT_TRUE(pump.Serve(100s));
    EXPECT_EQ(ticks, 100);
}

TEST_F(LoopEventPumpTest, SpeedShortensIntervalsToTheNanosecond)
{
    LoopTimer timer(pump, 7.0);
    int ticks = 0;
    timer.SetInterval(3ms);
    timer.OnTick([&] { ++ticks; });
    timer.Enable();
    EXPECT_TRUE(pump.Serve(3s)); // 3 ms / 7 = 428571 ns; 3 s / 428571 ns = 7000.007
    EXPECT_EQ(ticks, 7000);

    LoopTimer slower(pump, 0.5);
    timer.Disable();
    Record(slower, "s", 100ms);
    EXPECT_TRUE(pump.Serve(200ms));
    EXPECT_THAT(events, ElementsAre("s3200"));
}

TEST_F(LoopEventPumpTest, ClosingEndsEveryServing)
{
    LoopTimer timer(pump);
    LoopTimer later(pump);
    Record(later, "later", 30ms);
    bool inner = true;
    timer.SetInterval(30ms);
    timer.OnTick([&] { inner = pump.Serve(1h); });
    timer.Enable();
    LoopTimer closer(pump);
    closer.SetInterval(45ms);
    closer.OnTick([&] { pump.Close(); });
    closer.Enable();
    LoopTimer tooLate(pump);
    Record(tooLate, "too late", 45ms);
    EXPECT_FALSE(pump.Serve(1h));
    EXPECT_THAT(events, ElementsAre("later30"));
    EXPECT_FALSE(inner);
    EXPECT_EQ(time.Passed(), 45ms);
    EXPECT_TRUE(pump.Closing());
    const auto naps = time.naps.size();
    EXPECT_FALSE(pump.Serve(1h));
    EXPECT_EQ(time.naps.size(), naps) << "at once";
}

TEST_F(LoopEventPumpTest, TheIdleHookLooksOftenAndNeverInsideItself)
{
    int looks = 0;
    int depth = 0;
    pump.OnIdle([&] {
        ++depth;
        EXPECT_EQ(depth, 1);
        if (++looks == 3) {
            EXPECT_TRUE(pump.Serve(5ms));
        }
        if (time.Passed() >= 200ms)
            pump.Close();
        --depth;
    });
    EXPECT_FALSE(pump.Serve(1h));
    EXPECT_GE(time.Passed(), 200ms);
    EXPECT_LE(time.Passed(), 220ms);
    EXPECT_GE(looks, 10);
}

TEST_F(LoopEventPumpTest, HandlersMayMakeAndEndTimers)
{
    auto victim = std::make_unique<LoopTimer>(pump);
    auto self = std::make_unique<LoopTimer>(pump);
    std::unique_ptr<LoopTimer> made;
    Record(*victim, "victim", 10ms);
    const std::string longName(100, 'n'); // part of the handler: dies with it
    self->SetInterval(10ms);
    self->OnTick([this, &self, &made, longName] {
        self.reset();
        made = std::make_unique<LoopTimer>(pump);
        Record(*made, "made", 10ms);
        Note(longName.substr(0, 1));
    });
    self->Enable();
    LoopTimer killer(pump);
    killer.SetInterval(15ms);
    killer.OnTick([&] { victim.reset(); });
    killer.Enable();
    EXPECT_TRUE(pump.Serve(30ms));
    EXPECT_THAT(events, ElementsAre("victim10", "n10", "made20", "made30"));
}

TEST_F(LoopEventPumpTest, AHandlerMayPutAnotherInItsPlace)
{
    LoopTimer timer(pump);
    timer.SetInterval(10ms);
    const std::string longName(100, 'n'); // a part of the first handler, and used after it was replaced
    timer.OnTick([this, &timer, longName] {
        timer.OnTick([this] { Note("second"); });
        Note(longName.substr(0, 1));
    });
    timer.Enable();
    EXPECT_TRUE(pump.Serve(20ms));
    EXPECT_THAT(events, ElementsAre("n10", "second20"));
}

TEST_F(LoopEventPumpTest, AHandlerThatRestartsItsTimerBeginsANewPeriod)
{
    LoopTimer timer(pump);
    timer.SetInterval(10ms);
    timer.OnTick([&] {
        Note("t");
        time.now += 4ms;
        timer.Disable();
        timer.SetInterval(20ms);
        timer.Enable();
    });
    timer.Enable();
    EXPECT_TRUE(pump.Serve(60ms));
    EXPECT_THAT(events, ElementsAre("t10", "t34", "t58"));
}

TEST(LoopEventPumpRealTime, WaitsAtLeastTheFullTime)
{
    LoopEventPump pump;
    const auto start = steady_clock::now();
    EXPECT_TRUE(pump.Serve(3ms));
    EXPECT_GE(steady_clock::now() - start, 3ms);
}

} // namespace
} // namespace quorvane::test
