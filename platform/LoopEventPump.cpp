#include "platform/LoopEventPump.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace quorvane {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;

namespace {

// Far enough for every wait, and near enough that adding it to a time never overflows.
constexpr std::chrono::hours kLongestTime{24 * 365 * 100};

class FlagGuard {
public:
    explicit FlagGuard(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagGuard() { flag_ = false; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

private:
    bool& flag_;
};

nanoseconds PeriodOf(milliseconds interval, double speed)
{
    const milliseconds bounded = std::clamp<milliseconds>(interval, milliseconds{1}, kLongestTime);
    const double period = static_cast<double>(nanoseconds{bounded}.count()) / speed;
    const double longest = static_cast<double>(nanoseconds{kLongestTime}.count());
    return nanoseconds{static_cast<nanoseconds::rep>(std::clamp(period, 1.0, longest))};
}

} // namespace

struct LoopEventPump::Entry {
    std::function<void()> handler;
    nanoseconds period{};
    Clock::time_point due;
    bool enabled = false;
    bool running = false;

    void StartPeriod(Clock::time_point now) { due = now + period; }

    void LeaveOutPassed(Clock::time_point now)
    {
        if (due <= now)
            due += ((now - due) / period + 1) * period;
    }
};

LoopTime LoopTime::Real()
{
    return {[] { return Clock::now(); },
            [](Clock::time_point until) { std::this_thread::sleep_until(until); }};
}

LoopEventPump::LoopEventPump(LoopTime time) : time_(std::move(time)) {}

bool LoopEventPump::Serve(milliseconds time)
{
    const Clock::time_point end = time_.now() + std::clamp<milliseconds>(time, milliseconds{0}, kLongestTime);
    for (;;) {
        RunIdleHook();
        if (!closing_)
            FireDue();
        if (closing_)
            return false;
        const Clock::time_point now = time_.now();
        if (now >= end)
            return true;
        Clock::time_point wake = std::min<Clock::time_point>(end, now + kLongestNap);
        if (const EntryPointer next = EarliestTimer())
            wake = std::min(wake, next->due);
        if (wake > now)
            time_.sleepUntil(wake);
    }
}

void LoopEventPump::RunIdleHook()
{
    if (!idle_ || idleRuns_)
        return;
    const FlagGuard guard(idleRuns_);
    idle_();
}

// Only what was due at the beginning: handlers that take longer than a period must not keep the pump here.
void LoopEventPump::FireDue()
{
    const Clock::time_point limit = time_.now();
    for (;;) {
        const EntryPointer entry = EarliestTimer();
        if (closing_ || !entry || entry->due > limit)
            return;
        Fire(entry);
    }
}

void LoopEventPump::Fire(const EntryPointer& entry)
{
    entry->due += entry->period;
    {
        const FlagGuard guard(entry->running);
        const std::function<void()> handler =
            entry->handler; // the handler may replace itself or end its timer
        if (handler)
            handler();
    }
    entry->LeaveOutPassed(time_.now());
}

LoopEventPump::EntryPointer LoopEventPump::EarliestTimer() const
{
    EntryPointer earliest;
    for (const EntryPointer& entry : timers_) {
        if (entry->enabled && !entry->running && (!earliest || entry->due < earliest->due))
            earliest = entry;
    }
    return earliest;
}

LoopTimer::LoopTimer(LoopEventPump& pump, double speed)
    : pump_(pump), entry_(std::make_shared<LoopEventPump::Entry>()), speed_(speed)
{
    entry_->period = PeriodOf(milliseconds{1000}, speed_);
    pump_.timers_.push_back(entry_);
}

LoopTimer::~LoopTimer()
{
    entry_->enabled = false;
    std::erase(pump_.timers_, entry_);
}

void LoopTimer::OnTick(std::function<void()> handler)
{
    entry_->handler = std::move(handler);
}

void LoopTimer::SetInterval(milliseconds interval)
{
    entry_->period = PeriodOf(interval, speed_);
    entry_->StartPeriod(pump_.time_.now());
}

void LoopTimer::Enable()
{
    if (entry_->enabled)
        return;
    entry_->enabled = true;
    entry_->StartPeriod(pump_.time_.now());
}

void LoopTimer::Disable()
{
    entry_->enabled = false;
}

bool LoopTimer::Enabled() const
{
    return entry_->enabled;
}

} // namespace quorvane
