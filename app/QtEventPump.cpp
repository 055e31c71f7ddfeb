#include "app/QtEventPump.h"

#include <QEventLoop>
#include <QTimer>
#include <algorithm>

namespace quorvane {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

namespace {

// Far enough for every wait, and near enough that adding it to a time never overflows.
constexpr std::chrono::hours kLongestTime{24 * 365 * 100};
// What the toolkit's timer can count; it is set again when it rings.
constexpr milliseconds kLongestAlarm{std::chrono::hours{24 * 20}};

milliseconds AlarmUntil(Clock::time_point end)
{
    const auto left = std::chrono::ceil<milliseconds>(end - Clock::now());
    return std::clamp(left, milliseconds{0}, kLongestAlarm);
}

} // namespace

bool QtEventPump::Serve(milliseconds time)
{
    if (closing_)
        return false;
    const Clock::time_point end =
        Clock::now() + std::clamp<milliseconds>(time, milliseconds{0}, kLongestTime);

    QEventLoop loop;
    QTimer alarm;
    alarm.setTimerType(Qt::PreciseTimer);
    alarm.setSingleShot(true);
    bool elapsed = false;
    QObject::connect(&alarm, &QTimer::timeout, &loop, [&] {
        elapsed = Clock::now() >= end;
        if (elapsed)
            loop.quit();
        else
            alarm.start(AlarmUntil(end));
    });
    alarm.start(AlarmUntil(end));

    loops_.push_back(&loop);
    loop.exec();
    loops_.pop_back();
    // A loop that ends before its time was ended by `Close`, or by the application's quit: then every later
    // one would end at once as well, and who waits for more than time must not go on.
    return elapsed && !closing_;
}

void QtEventPump::Close()
{
    closing_ = true;
    for (QEventLoop* loop : loops_)
        loop->quit();
}

} // namespace quorvane
