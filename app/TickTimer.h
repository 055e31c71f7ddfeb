#pragma once

#include <chrono>
#include <functional>

namespace quorvane {

/// A repeating timer. Its handler runs while an `EventPump` serves events, and never inside itself: a tick
/// that falls due while the handler still runs is left out. (A toolkit's timer starts anew when it is started
/// twice and enters a handler that pumps: an implementation has to guard against both.)
class TickTimer {
public:
    virtual ~TickTimer() = default;
    /// Replaces the handler.
    virtual void OnTick(std::function<void()> handler) = 0;
    /// The time from one tick to the next. A running timer starts a new period.
    virtual void SetInterval(std::chrono::milliseconds interval) = 0;
    /// The first tick comes one interval later. Enabling an enabled timer changes nothing.
    virtual void Enable() = 0;
    virtual void Disable() = 0;
    [[nodiscard]] virtual bool Enabled() const = 0;
};

} // namespace quorvane
