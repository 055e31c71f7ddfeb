#pragma once

#include "app/WindowOrder.h"

namespace quorvane {

/// The order of all windows on the screen.
class WindowsWindowOrder final : public WindowOrder {
public:
    [[nodiscard]] FrontWindow::Handle Foreground() const override;
    void BringToTop(FrontWindow::Handle window) override;
};

} // namespace quorvane
