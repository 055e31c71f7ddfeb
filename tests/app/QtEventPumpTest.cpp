#include "app/QtEventPump.h"

#include "app/QtTickTimer.h"

#include <QApplication>
#include <QObject>
#include <QTimer>
#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

struct QtEventPumpTest : testing::Test {
    QtEventPump pump;
    QObject timers;
    std::string events;

    /// Runs `handler` once, `delay` from now, in whatever serves events then while this test goes on.
    template <typename Handler>
    void After(std::chrono::milliseconds delay, Handler handler)
    {
        QTimer::singleShot(delay, Qt::PreciseTimer, &timers, handler);
    }
    void Note(const std::string& what) { events += what + " "; }
};

TEST_F(QtEventPumpTest, ServesTheFullTimeOutsideAnyLoopAndInside)
{
    const auto serve = [this] {
        const auto start = steady_clock::now();
        EXPECT_TRUE(pump.Serve(33ms));
        EXPECT_GE(steady_clock::now() - start, 33ms);
        Note("served");
    };
    serve();
    After(0ms, [&] {
        serve();
        QApplication::exit(5);
    });
    EXPECT_EQ(QApplication::exec(), 5);
    serve();
    EXPECT_EQ(events, "served served served ");
}

TEST_F(QtEventPumpTest, NoTimeServesWhatIsPending)
{
    for (const auto time : {0ms, -7ms, std::chrono::milliseconds::min()}) {
        int ticks = 0;
        QtTickTimer due;
        due.SetInterval(1ms);
        due.OnTick([&] { ++ticks; });
        due.Enable();
        QMetaObject::invokeMethod(
            qApp, [&] { Note("posted"); }, Qt::QueuedConnection);
        std::this_thread::sleep_for(3ms);
        EXPECT_TRUE(pump.Serve(time));
        EXPECT_EQ(ticks, 1) << time.count();
        EXPECT_EQ(events, "posted ") << time.count();
        events.clear();
    }
}

TEST_F(QtEventPumpTest, HandlersMayServeAndTheOuterServingEndsAfterTheInner)
{
    QtTickTimer other;
    other.SetInterval(10ms);
    int ticks = 0;
    other.OnTick([&] { ++ticks; });
    other.Enable();
    After(10ms, [&] {
        Note("begin");
        EXPECT_TRUE(pump.Serve(60ms));
        Note("end");
    });
    EXPECT_TRUE(pump.Serve(25ms));
    Note("outer");
    EXPECT_EQ(events, "begin end outer ");
    EXPECT_GE(ticks, 2);
}

TEST_F(QtEventPumpTest, ClosingEndsEveryServing)
{
    After(5ms, [&] {
        EXPECT_FALSE(pump.Serve(std::chrono::milliseconds::max()));
        Note("inner");
        EXPECT_FALSE(pump.Serve(10h)) << "a later one";
    });
    After(20ms, [&] { pump.Close(); });
    EXPECT_FALSE(pump.Serve(10h));
    Note("outer");
    After(0ms, [&] { Note("too early"); });
    EXPECT_FALSE(pump.Serve(0ms));
    EXPECT_EQ(events, "inner outer ");
}

TEST_F(QtEventPumpTest, AfterTheApplicationsQuitNoWaitGoesOn)
{
    int passes = 0;
    After(0ms, [&] {
        QApplication::quit();
        while (++passes < 1000 && pump.Serve(1h)) {
        }
    });
    After(10h, [] {});
    QApplication::exec();
    EXPECT_EQ(passes, 1);

    After(5ms, [] { QApplication::exit(); }); // while it waits, outside the application's loop
    EXPECT_FALSE(pump.Serve(10h));
    EXPECT_FALSE(pump.Serve(0ms));

    After(0ms, [] { QApplication::exit(); });
    QApplication::exec(); // the next loop takes the quit back
    EXPECT_TRUE(pump.Serve(1ms));
}

} // namespace
} // namespace quorvane
