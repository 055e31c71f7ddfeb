#pragma once

#include <chrono>

namespace quorvane {

/// Serves the user interface's events while the program waits for something else.
class EventPump {
public:
    virtual ~EventPump() = default;
    /// Sleeps and serves events and timers until the full `time` has passed; 0 serves what is pending.
    /// Returns at once when the program is closing.
    /// @return false when the program is closing, and every wait has to end
    [[nodiscard]] virtual bool Serve(std::chrono::milliseconds time) = 0;
};

} // namespace quorvane
