#pragma once

#include "app/WindowOrder.h"

namespace quorvane {

/// The order of windows as far as the toolkit knows it: of this program's own ones. It acts only while one of
/// them is the active one and so never takes the focus from another program.
class QtWindowOrder final : public WindowOrder {
public:
    [[nodiscard]] FrontWindow::Handle Foreground() const override;
    void BringToTop(FrontWindow::Handle window) override;
};

} // namespace quorvane
