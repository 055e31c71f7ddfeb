#pragma once

#include "app/FrontWindow.h"
#include "app/TickTimer.h"
#include "app/WindowOrder.h"

#include <QObject>

class QWidget;

namespace quorvane {

/// Keeps a dialog in front of the main window, and brings the main window back when the dialog has closed.
class WindowKeeper final : public QObject {
public:
    /// @param timer4  ticks every 500 ms from here on
    WindowKeeper(QWidget& main, TickTimer& timer4, WindowOrder& order);
    ~WindowKeeper() override;
    WindowKeeper(const WindowKeeper&) = delete;
    WindowKeeper& operator=(const WindowKeeper&) = delete;

    /// From now on `dialog` is kept in front while it is shown. It may be destroyed at any time.
    void Watch(QWidget& dialog);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Tick();
    void Record(QWidget& dialog);
    void Forget(const QObject* dialog);

    QWidget& main_;
    TickTimer& timer4_;
    WindowOrder& order_;
    FrontWindow rule_;
    QWidget* second_ = nullptr; ///< the watched dialog that was shown last, while it is shown
};

} // namespace quorvane
