#pragma once

#include <QLineEdit>

namespace quorvane {

/// The input of one value that is checked when it is left: a number, an exposure limit for instance, or a
/// date. Getting the focus selects the whole text, so that typing replaces it.
class CheckedBox final : public QLineEdit {
    Q_OBJECT

public:
    explicit CheckedBox(QWidget* parent = nullptr);

Q_SIGNALS:
    /// The operator has gone to another control of the window. A menu, a message box or another program that
    /// takes the focus is not a leaving, for the operator comes back to the box; nor is the program's own
    /// `setFocus`.
    void Left();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool enteredByMouse_ = false;
};

} // namespace quorvane
