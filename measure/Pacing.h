#pragma once

#include <chrono>

namespace quorvane {

/// How the sampling interval is laid on the two pacing timers.
struct Pacing {
    int minutesPerSample = 1; ///< ticks of `Timer2` until `Timer3` is armed
    std::chrono::milliseconds timer2{};
    std::chrono::milliseconds timer3{};
};

/// Under a minute `Timer2` carries the interval; from a minute on it counts whole minutes and `Timer3`
/// carries the rest. With an instrument, `Timer2` is 100 ms short under a minute: the wait for the
/// instrument's line absorbs it, so that the program never falls behind the instrument.
/// @param samplingSeconds  1 to 900
[[nodiscard]] Pacing PacingFor(int samplingSeconds, bool withInstrument);

} // namespace quorvane
