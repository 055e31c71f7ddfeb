#pragma once

#include "app/EventPump.h"

#include <vector>

class QEventLoop;

namespace quorvane {

/// The event pump of the program with windows: a nested event loop of the toolkit. It works inside and
/// outside the toolkit's own loop, and ends at once after the application's quit.
class QtEventPump final : public EventPump {
public:
    /// A `time` below 0 counts as 0. An outer `Serve` whose time runs out while an inner one goes on returns
    /// when the inner one does.
    [[nodiscard]] bool Serve(std::chrono::milliseconds time) override;

    /// Ends every `Serve` that goes on, and each later one at once.
    void Close();

private:
    std::vector<QEventLoop*> loops_; ///< going on, the innermost last
    bool closing_ = false;
};

} // namespace quorvane
