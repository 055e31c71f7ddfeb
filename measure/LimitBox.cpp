#include "measure/LimitBox.h"

#include <QFocusEvent>

namespace quorvane {
namespace {

bool IsWithinWindow(Qt::FocusReason reason)
{
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

} // namespace

LimitBox::LimitBox(QWidget* parent) : QLineEdit(parent)
{
    setMaxLength(16);
    setAlignment(Qt::AlignRight);
    QPalette colours = palette(); // a limit is read during a measurement, too, when it cannot be changed
    colours.setColor(QPalette::Disabled, QPalette::Text, colours.color(QPalette::Active, QPalette::Text));
    setPalette(colours);
}

void LimitBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (IsWithinWindow(event->reason()))
        selectAll();
    enteredByMouse_ = event->reason() == Qt::MouseFocusReason;
}

void LimitBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (IsWithinWindow(event->reason()))
        Q_EMIT Left();
}

void LimitBox::mousePressEvent(QMouseEvent* event)
{
    QLineEdit::mousePressEvent(event);
    if (enteredByMouse_) // the press that brings the focus would put the cursor and take the selection away
        selectAll();
    enteredByMouse_ = false;
}

} // namespace quorvane
