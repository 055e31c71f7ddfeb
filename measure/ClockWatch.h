#pragma once

#include "app/LocalClock.h"
#include "measure/RunGap.h"

#include <optional>

namespace quorvane {

/// Notices by the clocks that the computer slept or gave the program no time, and that its clock was set.
/// Daylight saving is neither.
class ClockWatch {
public:
    explicit ClockWatch(const LocalClock& clock) : clock_(clock) {}

    /// Looks from now on.
    void Begin() { seen_ = Read(); }
    /// A look, many of them in a second. @return what has happened since the last one; its `before` is left
    /// at 0
    [[nodiscard]] std::optional<RunGap> Look();

private:
    struct Clocks {
        LocalMoment local;
        std::chrono::system_clock::time_point system;
        std::chrono::milliseconds sinceBoot;
    };
    [[nodiscard]] Clocks Read() const { return {clock_.Now(), clock_.SystemNow(), clock_.SinceBoot()}; }

    const LocalClock& clock_;
    Clocks seen_{};
};

} // namespace quorvane
