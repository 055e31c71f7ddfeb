#include "app/CheckedBox.h"

#include <QFocusEvent>

namespace quorvane {
namespace {

constexpr int kLongestText = 32; // more than any number or date needs

/// The operator has gone to another control of the window. The program's own moving of the focus is none of
/// that: two limits that are both out of range would send it to and fro for ever.
bool IsOperators(Qt::FocusReason reason)
{
    return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
           reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

} // namespace

CheckedBox::CheckedBox(QWidget* parent) : QLineEdit(parent)
{
    setMaxLength(kLongestText);
    setAlignment(Qt::AlignRight);
    QPalette colours = palette(); // a limit is read during a measurement, too, when it cannot be changed
    colours.setColor(QPalette::Disabled, QPalette::Text, colours.color(QPalette::Active, QPalette::Text));
    setPalette(colours);
}

void CheckedBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        selectAll();
    enteredByMouse_ = event->reason() == Qt::MouseFocusReason;
}

void CheckedBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    enteredByMouse_ = false;
    if (IsOperators(event->reason()))
        Q_EMIT Left();
}

/// The press that brings the focus puts the cursor, and the hand that moves meanwhile drags a selection:
/// neither is meant.
void CheckedBox::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (enteredByMouse_)
        selectAll();
    enteredByMouse_ = false;
}

} // namespace quorvane
