#pragma once

#include "app/FrontWindow.h"

namespace quorvane {

/// Which window is in front on the screen, as the system or the toolkit tells it.
class WindowOrder {
public:
    virtual ~WindowOrder() = default;
    /// The window that is in front; 0 when that is not known.
    [[nodiscard]] virtual FrontWindow::Handle Foreground() const = 0;
    /// Brings a window of this program to the top of the others.
    virtual void BringToTop(FrontWindow::Handle window) = 0;
};

} // namespace quorvane
