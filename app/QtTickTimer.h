#pragma once

#include "app/TickTimer.h"

#include <memory>

namespace quorvane {

/// A tick timer in the toolkit's event loop.
///
/// Ticks stand on a grid of whole intervals from the enabling, so lateness below one interval leaves the
/// average pace as it is. Grid points that have passed by when a tick is over (a long handler, a program held
/// up) are left out: no burst follows. A timer may be destroyed in any handler, its own included.
class QtTickTimer final : public TickTimer {
public:
    QtTickTimer();
    ~QtTickTimer() override;
    QtTickTimer(const QtTickTimer&) = delete;
    QtTickTimer& operator=(const QtTickTimer&) = delete;

    void OnTick(std::function<void()> handler) override;
    /// Below 1 ms counts as 1 ms. It is 1 s before the first call.
    void SetInterval(std::chrono::milliseconds interval) override;
    void Enable() override;
    void Disable() override;
    [[nodiscard]] bool Enabled() const override;

private:
    struct Schedule;

    std::shared_ptr<Schedule> schedule_;
};

} // namespace quorvane
