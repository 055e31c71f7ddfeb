#pragma once

#include <chrono>

namespace quorvane {

/// A local date and time in whole seconds. It says what the wall clock shows, not which instant that is.
using LocalMoment = std::chrono::local_seconds;

/// What the computer's clocks show.
class LocalClock {
public:
    virtual ~LocalClock() = default;
    [[nodiscard]] virtual LocalMoment Now() const = 0;
    /// Never jumps; for measuring waits.
    [[nodiscard]] virtual std::chrono::steady_clock::time_point SteadyNow() const = 0;
    /// The clock behind `Now`, before time zone and daylight saving: it jumps only when somebody sets it.
    [[nodiscard]] virtual std::chrono::system_clock::time_point SystemNow() const = 0;
    /// Time that goes on while the computer sleeps, and that nobody sets.
    [[nodiscard]] virtual std::chrono::milliseconds SinceBoot() const = 0;
};

} // namespace quorvane
