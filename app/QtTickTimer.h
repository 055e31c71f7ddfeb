#pragma once

#include "app/TickTimer.h"

#include <QTimer>

namespace quorvane {

/// A tick timer in the toolkit's event loop.
class QtTickTimer final : public TickTimer {
public:
    QtTickTimer();

    void OnTick(std::function<void()> handler) override;
    void SetInterval(std::chrono::milliseconds interval) override;
    void Enable() override;
    void Disable() override;
    [[nodiscard]] bool Enabled() const override;

private:
    void Tick();

    QTimer timer_;
    std::function<void()> handler_;
    bool inHandler_ = false;
};

} // namespace quorvane
