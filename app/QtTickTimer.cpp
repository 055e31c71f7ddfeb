#include "app/QtTickTimer.h"

#include "app/ScopedFlag.h"

#include <utility>

namespace quorvane {

QtTickTimer::QtTickTimer()
{
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(std::chrono::seconds(1));
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
}

void QtTickTimer::OnTick(std::function<void()> handler)
{
    handler_ = std::move(handler);
}

void QtTickTimer::SetInterval(std::chrono::milliseconds interval)
{
    timer_.setInterval(interval);
}

void QtTickTimer::Enable()
{
    if (!timer_.isActive()) // the toolkit would start a new period, and a wait that enables it on every pass
        timer_.start();     // would never see a tick
}

void QtTickTimer::Disable()
{
    timer_.stop();
}

bool QtTickTimer::Enabled() const
{
    return timer_.isActive();
}

void QtTickTimer::Tick()
{
    if (inHandler_ || !handler_)
        return;
    const ScopedFlag inHandler(inHandler_);
    handler_();
}

} // namespace quorvane
