#pragma once

#include <QDialog>
#include <QPointer>

namespace quorvane {

/// Shows `dialog` and serves events until it is closed, also after the application's quit, when the
/// toolkit's own way returns at once with a question unanswered on the screen.
/// @return false when the dialog was destroyed meanwhile, by its parent for instance
[[nodiscard]] bool RunModally(const QPointer<QDialog>& dialog);

} // namespace quorvane
