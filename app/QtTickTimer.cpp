#include "app/QtTickTimer.h"

#include "app/ScopedFlag.h"

#include <QTimer>
#include <algorithm>
#include <utility>

namespace quorvane {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds kShortest{1};
constexpr milliseconds kLongest{std::chrono::hours{24 * 20}}; // what the toolkit's timer can count

} // namespace

// The toolkit's own repetition gives a late tick after a long handler and starts a new period when it is
// enabled twice. So the schedule is kept here, and the toolkit's timer rings once per tick.
struct QtTickTimer::Schedule {
    QTimer alarm;
    std::function<void()> handler;
    milliseconds interval{1000};
    Clock::time_point due;
    bool enabled = false;
    bool inHandler = false;

    void StartPeriod()
    {
        due = Clock::now() + interval;
        SetAlarm();
    }

    /// While the handler runs, nothing rings: the alarm is set when it is over.
    void SetAlarm()
    {
        if (!enabled || inHandler)
            return;
        const auto left = std::chrono::ceil<milliseconds>(due - Clock::now());
        alarm.start(std::max(left, milliseconds{0}));
    }

    void LeaveOutPassed()
    {
        const Clock::time_point now = Clock::now();
        if (due <= now)
            due += ((now - due) / interval + 1) * interval;
    }

    void Tick()
    {
        if (Clock::now() < due) { // rung early
            SetAlarm();
            return;
        }
        due += interval;
        {
            const ScopedFlag flag(inHandler);
            const std::function<void()> running = handler; // the handler may replace itself
            if (running)
                running();
        }
        LeaveOutPassed();
        SetAlarm();
    }
};

QtTickTimer::QtTickTimer() : schedule_(std::make_shared<Schedule>())
{
    QTimer& alarm = schedule_->alarm;
    alarm.setTimerType(Qt::PreciseTimer);
    alarm.setSingleShot(true);
    QObject::connect(&alarm, &QTimer::timeout, &alarm, [weak = std::weak_ptr<Schedule>(schedule_)] {
        if (const auto kept = weak.lock()) // through its handler, which may destroy the timer
            kept->Tick();
    });
}

QtTickTimer::~QtTickTimer()
{
    Disable(); // its handler may be running and end after this
    schedule_->alarm.disconnect();
}

void QtTickTimer::OnTick(std::function<void()> handler)
{
    schedule_->handler = std::move(handler);
}

void QtTickTimer::SetInterval(milliseconds interval)
{
    schedule_->interval = std::clamp(interval, kShortest, kLongest);
    if (schedule_->enabled)
        schedule_->StartPeriod();
}

void QtTickTimer::Enable()
{
    if (schedule_->enabled)
        return;
    schedule_->enabled = true;
    schedule_->StartPeriod();
}

void QtTickTimer::Disable()
{
    schedule_->enabled = false;
    schedule_->alarm.stop();
}

bool QtTickTimer::Enabled() const
{
    return schedule_->enabled;
}

} // namespace quorvane
