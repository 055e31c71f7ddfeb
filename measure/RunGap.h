#pragma once

#include "app/LocalClock.h"

#include <cstdint>

namespace quorvane {

/// Why readings may be missing between two readings of a run.
enum class GapKind {
    PortLost,   ///< the device of the port had gone; the instrument measured on, and nobody listened
    Standstill, ///< the computer slept, or the program got no time
    ClockSet,   ///< no reading is missing: the computer's clock was set
};

/// A gap in a run. It is no reading and has no row.
struct RunGap {
    std::int32_t before =
        0; ///< the reading that came behind the gap, from 1; one more than were taken when none did
    GapKind kind = GapKind::PortLost;
    LocalMoment from{}; ///< by the computer's clock; of `ClockSet` what it showed before and after
    LocalMoment to{};
    friend bool operator==(const RunGap&, const RunGap&) = default;
};

} // namespace quorvane
