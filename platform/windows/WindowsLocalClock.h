#pragma once

#include "app/LocalClock.h"

namespace quorvane {

/// While it lives the system wakes sleepers on the millisecond instead of every 16.
class WindowsLocalClock final : public LocalClock {
public:
    WindowsLocalClock();
    ~WindowsLocalClock() override;
    WindowsLocalClock(const WindowsLocalClock&) = delete;
    WindowsLocalClock& operator=(const WindowsLocalClock&) = delete;

    [[nodiscard]] LocalMoment Now() const override;
    [[nodiscard]] std::chrono::steady_clock::time_point SteadyNow() const override
    {
        return std::chrono::steady_clock::now();
    }
    [[nodiscard]] std::chrono::system_clock::time_point SystemNow() const override
    {
        return std::chrono::system_clock::now();
    }
    [[nodiscard]] std::chrono::milliseconds SinceBoot() const override;
};

} // namespace quorvane
