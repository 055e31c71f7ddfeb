#pragma once

#include "app/Texts.h"

#include <QObject>
#include <QString>
#include <memory>

class QDialog;
class QWidget;

namespace quorvane {

class FrmGuide;

/// The operator's guide that is built into the program, and the key that opens it. The guide stands beside
/// the windows and can be used whatever dialog is open; it serves no events itself, so it can be read while a
/// run goes on. It stays when a dialog closes, and goes with the main window.
///
/// F1 in any dialog opens it at the chapter that has the dialog's title, in a message box at that of the
/// dialog before which the box stands; the main window opens it by its menu.
class Guide final : public QObject {
public:
    /// @param texts  choose the language of the guide when it is opened
    Guide(const Texts& texts, QWidget& mainWindow);
    ~Guide() override;
    Guide(const Guide&) = delete;
    Guide& operator=(const Guide&) = delete;

    /// Opens the guide, or brings the open one to the front, at the chapter whose heading is `chapter`, or at
    /// its beginning when there is none of that name. Without a name it is opened where it was left.
    void Open(const QString& chapter = QString());

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void ShowOwnedByNoWindow();
    void OpenFor(const QDialog& dialog);
    void StandBeforeFrontDialog();

    const Texts& texts_;
    QWidget& mainWindow_;
    std::unique_ptr<FrmGuide> window_; ///< from the first opening on
    bool showing_ = false;
};

} // namespace quorvane
