#include "tests/support/World.h"

#include <stdexcept>

namespace quorvane {

bool World::Serve(std::chrono::milliseconds time)
{
    if (++pumps_ > pumpLimit)
        throw std::runtime_error("pumped without end");
    if (onPump)
        onPump(pumps_);
    const Time end = now_ + time;
    while (!closing_ && RunNext(end)) {
    }
    if (!closing_ && now_ < end) // a nested pump may have gone further
        now_ = end;
    return !closing_;
}

LocalMoment World::Now() const
{
    return start_ + std::chrono::floor<std::chrono::seconds>(now_ + asleep_ + set_ + zone_);
}

bool World::RunNext(Time until)
{
    WorldTimer* next = nullptr;
    for (WorldTimer* timer : timers_) {
        if (timer->enabled_ && timer->due_ <= until && (next == nullptr || timer->due_ < next->due_))
            next = timer;
    }
    const bool eventIsDue = !events_.empty() && events_.begin()->first <= until;
    if (eventIsDue && (next == nullptr || events_.begin()->first <= next->due_)) {
        const auto event = events_.extract(events_.begin());
        now_ = std::max(now_, event.key());
        event.mapped()();
        return true;
    }
    if (next == nullptr)
        return false;
    now_ = std::max(now_, next->due_);
    next->Tick();
    return true;
}

void WorldTimer::SetInterval(std::chrono::milliseconds interval)
{
    interval_ = interval;
    due_ = world_.now_ + interval_;
}

void WorldTimer::Enable()
{
    if (enabled_)
        return;
    enabled_ = true;
    due_ = world_.now_ + interval_;
}

void WorldTimer::Tick()
{
    due_ = std::max(due_ + interval_, world_.now_);
    if (inHandler_)
        return;
    inHandler_ = true;
    handler_();
    inHandler_ = false;
}

} // namespace quorvane
