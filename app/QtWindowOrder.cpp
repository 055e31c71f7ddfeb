#include "app/QtWindowOrder.h"

#include <QApplication>
#include <QWidget>

namespace quorvane {

FrontWindow::Handle QtWindowOrder::Foreground() const
{
    const QWidget* const active = QApplication::activeWindow(); // none while another program is in front
    return active == nullptr ? 0 : static_cast<FrontWindow::Handle>(active->winId());
}

void QtWindowOrder::BringToTop(FrontWindow::Handle window)
{
    QWidget* const widget = QWidget::find(static_cast<WId>(window));
    if (widget != nullptr && Foreground() != 0)
        widget->raise();
}

} // namespace quorvane
