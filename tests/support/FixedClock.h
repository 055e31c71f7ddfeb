#pragma once

#include "app/LocalClock.h"

namespace quorvane {

/// A clock that a test sets and moves.
class FixedClock : public LocalClock {
public:
    LocalMoment now{};
    std::chrono::steady_clock::time_point steadyNow{};

    LocalMoment Now() const override { return now; }
    std::chrono::steady_clock::time_point SteadyNow() const override { return steadyNow; }
};

} // namespace quorvane
