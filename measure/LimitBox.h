#pragma once

#include <QLineEdit>

namespace quorvane {

/// The input of one exposure limit. Getting the focus selects the whole text, so that typing replaces it.
class LimitBox final : public QLineEdit {
    Q_OBJECT

public:
    explicit LimitBox(QWidget* parent = nullptr);

Q_SIGNALS:
    /// The focus has gone to another control of the window. A menu, a message box or another program that
    /// takes the focus is not a leaving: the operator comes back to the box.
    void Left();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    bool enteredByMouse_ = false;
};

} // namespace quorvane
