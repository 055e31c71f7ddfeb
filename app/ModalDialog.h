#pragma once

#include <QDialog>
#include <QPointer>

namespace quorvane {

/// Shows `dialog` and serves events until it is closed, also after the application's quit, when the
/// toolkit's own way returns at once with a question unanswered on the screen.
/// @return false when the dialog was destroyed meanwhile, by its parent for instance
[[nodiscard]] bool RunModally(const QPointer<QDialog>& dialog);

/// Shows `dialog` in front of the windows that cannot be used until it is closed, and returns at once: for
/// what is opened while a run goes on. Events that were served in there, inside the wait for a reading, would
/// hold up that reading and all later ones. The dialog is destroyed when it has closed.
void ShowModally(QDialog& dialog);

} // namespace quorvane
