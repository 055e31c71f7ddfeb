#pragma once

#include <cstdint>

namespace quorvane {

/// Which window is to be brought to the top, decided at each tick of the timer that keeps windows in front.
/// A window is known by its handle, the system's number for it; 0 is no window.
class FrontWindow {
public:
    using Handle = std::intptr_t;
    enum class Raise { Nothing, Main, Second };

    /// The main window was activated.
    void MainActivated(Handle handle) { main_ = handle; }
    /// A dialog before the main window has opened.
    void RecordSecond(Handle handle) { second_ = handle; }
    /// The dialog has closed; the main window comes to the top once. This is the state at the start, too.
    void ClearSecond() { second_ = kNone; }

    /// @param foreground  the window that is in front now; 0 when it is none of this program's
    [[nodiscard]] Raise OnTick(Handle foreground);

private:
    static constexpr Handle kNone = 0;
    static constexpr Handle kNothingToRaise = -9999;

    Handle main_ = kNone;
    Handle second_ = kNone;
};

} // namespace quorvane
