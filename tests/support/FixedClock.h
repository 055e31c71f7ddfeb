#pragma once

#include "app/LocalClock.h"

namespace quorvane {

/// A clock that a test sets and moves.
class FixedClock : public LocalClock {
public:
    LocalMoment now{};
    std::chrono::steady_clock::time_point steadyNow{};
    std::chrono::system_clock::time_point systemNow{};
    std::chrono::milliseconds sinceBoot{};

    LocalMoment Now() const override { return now; }
    std::chrono::steady_clock::time_point SteadyNow() const override { return steadyNow; }
    std::chrono::system_clock::time_point SystemNow() const override { return systemNow; }
    std::chrono::milliseconds SinceBoot() const override { return sinceBoot; }
};

} // namespace quorvane
