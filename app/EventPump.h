#pragma once

#include <chrono>

namespace quorvane {

/// How long one look at events, counters and port lasts in a wait: short enough to feel immediate, long
/// enough that a waiting program costs well under one percent of a core.
inline constexpr std::chrono::milliseconds kNap{20};

/// Serves the user interface's events while the program waits for something else. Handlers that it runs may
/// call it again.
class EventPump {
public:
    virtual ~EventPump() = default;
    /// Sleeps and serves events and timers until the full `time` has passed; 0 or less serves what is
    /// pending. Returns at once when the program is closing; asked afresh at each call, for the operator may
    /// decide to stay.
    /// @return false when the program is closing, and every wait has to end
    [[nodiscard]] virtual bool Serve(std::chrono::milliseconds time) = 0;
};

} // namespace quorvane
