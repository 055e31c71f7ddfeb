#include "options/Guide.h"

#include "app/ScopedFlag.h"
#include "options/FrmGuide.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QWindow>

namespace quorvane {
namespace {

bool IsHelpKey(const QEvent& event)
{
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

/// The dialog that `object` belongs to, if any.
QDialog* DialogOf(QObject* object)
{
    return object->isWidgetType() ? qobject_cast<QDialog*>(static_cast<QWidget*>(object)->window()) : nullptr;
}

} // namespace

Guide::Guide(const Texts& texts, QWidget& mainWindow) : texts_(texts), mainWindow_(mainWindow)
{
    qApp->installEventFilter(this);
}

Guide::~Guide() = default;

void Guide::Open(const QString& chapter)
{
    if (!window_)
        window_ = std::make_unique<FrmGuide>(texts_);
    window_->Load();
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    if (!window_->isVisible())
        ShowOwnedByNoWindow();
    StandBeforeFrontDialog();
    if (!chapter.isEmpty())
        window_->GoTo(chapter);
    window_->raise();
    window_->activateWindow();
}

/// A message box has no chapter; one of the dialogs behind it may. The guide stays where it was left if none
/// has.
void Guide::OpenFor(const QDialog& dialog)
{
    Open();
    for (const QWidget* window = &dialog; window != nullptr;) {
        if (window_->HasChapter(window->windowTitle()))
            return window_->GoTo(window->windowTitle());
        const QWidget* const behind = window->parentWidget();
        window = behind == nullptr ? nullptr : behind->window();
    }
}

/// Windows makes the window that it stands before while it is shown its owner, whatever it stands before
/// later, and an owner takes its windows along when it is destroyed.
void Guide::ShowOwnedByNoWindow()
{
    const ScopedFlag showing(showing_);
    static_cast<void>(window_->winId()); // makes its handle
    window_->windowHandle()->setTransientParent(nullptr);
    window_->show();
}

/// A modal dialog blocks every window but those that stand before it. The guide is nobody's child: the dialog
/// would take it along when it closes, and a main window that cannot be used would disable it.
void Guide::StandBeforeFrontDialog()
{
    QWidget* const modal = QApplication::activeModalWidget();
    const QWidget& below = modal == nullptr ? mainWindow_ : *modal;
    window_->windowHandle()->setTransientParent(below.window()->windowHandle());
}

bool Guide::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: // before a shortcut of the main window sees it
    case QEvent::KeyPress: {
        const QDialog* const dialog = IsHelpKey(*event) ? DialogOf(object) : nullptr;
        if (dialog == nullptr)
            break;
        event->accept();
        if (event->type() == QEvent::KeyPress && !static_cast<QKeyEvent*>(event)->isAutoRepeat())
            OpenFor(*dialog);
        return true;
    }
    case QEvent::WindowBlocked: // by a dialog that came up while the guide is open
        if (window_ && object == window_.get() && !showing_)
            StandBeforeFrontDialog();
        break;
    case QEvent::Hide:
        if (!window_ || event->spontaneous()) // the desktop hides what it minimises
            break;
        if (object == &mainWindow_)
            window_->hide();
        else if (DialogOf(object) == object && window_->isVisible())
            StandBeforeFrontDialog(); // it may have stood before this one
        break;
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

} // namespace quorvane
