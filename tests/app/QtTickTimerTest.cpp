#include "app/QtTickTimer.h"

#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

/// Serves events until `condition` holds; half a minute means never.
template <typename Condition>
[[nodiscard]] bool ServeUntil(Condition condition)
{
    return QTest::qWaitFor(condition, 30000);
}

struct QtTickTimerTest : testing::Test {
    int ticks = 0;

    void Start(QtTickTimer& timer, std::chrono::milliseconds interval)
    {
        timer.SetInterval(interval);
        timer.OnTick([this] { ++ticks; });
        timer.Enable();
    }
};

TEST_F(QtTickTimerTest, TicksAtWholeIntervalsUntilItIsDisabled)
{
    QtTickTimer timer;
    const auto start = steady_clock::now();
    Start(timer, 15ms);
    ASSERT_TRUE(ServeUntil([&] { return ticks == 4; }));
    EXPECT_GE(steady_clock::now() - start, 60ms);
    timer.Disable();
    EXPECT_FALSE(timer.Enabled());
    QTest::qWait(50);
    EXPECT_EQ(ticks, 4);
    timer.SetInterval(1ms);
    QTest::qWait(20);
    EXPECT_EQ(ticks, 4) << "an interval enables nothing";
}

TEST_F(QtTickTimerTest, EnablingOnEveryPassDoesNotKeepItFromTicking)
{
    QtTickTimer timer;
    QtTickTimer eager;
    Start(timer, 25ms);
    eager.SetInterval(1ms);
    eager.OnTick([&] { timer.Enable(); });
    eager.Enable();
    EXPECT_TRUE(ServeUntil([&] { return ticks == 3; }));
}

TEST_F(QtTickTimerTest, ANewIntervalStartsANewPeriod)
{
    QtTickTimer timer;
    Start(timer, 10h);
    const auto start = steady_clock::now();
    timer.SetInterval(30ms);
    ASSERT_TRUE(ServeUntil([&] { return ticks == 1; }));
    EXPECT_GE(steady_clock::now() - start, 30ms);
}

TEST_F(QtTickTimerTest, AHandlerThatServesEventsIsNotEnteredAgain)
{
    QtTickTimer timer;
    int depth = 0;
    timer.SetInterval(5ms);
    timer.OnTick([&] {
        EXPECT_EQ(++depth, 1);
        timer.Disable(); // a new start does not open a way in either
        timer.Enable();
        QTest::qWait(40);
        --depth;
        ++ticks;
    });
    timer.Enable();
    EXPECT_TRUE(ServeUntil([&] { return ticks == 3; }));
}

TEST_F(QtTickTimerTest, ATickThatFallsDueInItsHandlerIsLeftOut)
{
    QtTickTimer timer;
    steady_clock::time_point second;
    timer.SetInterval(100ms);
    timer.OnTick([&] {
        if (++ticks == 1)
            std::this_thread::sleep_for(130ms); // from 100 past 200
        else if (ticks == 2)
            second = steady_clock::now();
    });
    const auto start = steady_clock::now();
    timer.Enable();
    ASSERT_TRUE(ServeUntil([&] { return ticks >= 2; }));
    EXPECT_GE(second - start, 300ms);
}

TEST_F(QtTickTimerTest, AHandlerMayReplaceItselfAndEndItsTimer)
{
    auto timer = std::make_unique<QtTickTimer>();
    const std::string longName(100, 'n'); // part of each handler: dies with it, and is used after that
    std::string seen;
    timer->SetInterval(5ms);
    timer->OnTick([&, longName] {
        timer->OnTick([&, longName] {
            timer.reset();
            seen += longName.substr(0, 2);
        });
        seen += longName.substr(0, 1);
    });
    timer->Enable();
    EXPECT_TRUE(ServeUntil([&] { return !timer; }));
    EXPECT_EQ(seen, "nnn");
    QTest::qWait(20);
}

TEST_F(QtTickTimerTest, ATimerMayEndWhileItsHandlerServesEvents)
{
    auto timer = std::make_unique<QtTickTimer>();
    QtTickTimer other;
    timer->SetInterval(5ms);
    timer->OnTick([&] {
        other.Enable();
        EXPECT_TRUE(ServeUntil([&] { return !timer; }));
        ++ticks;
    });
    other.SetInterval(5ms);
    other.OnTick([&] { timer.reset(); });
    timer->Enable();
    EXPECT_TRUE(ServeUntil([&] { return ticks == 1; }));
    QTest::qWait(20);
    EXPECT_EQ(ticks, 1);
}

} // namespace
} // namespace quorvane
