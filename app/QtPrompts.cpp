#include "app/QtPrompts.h"

#include "app/MessageBox.h"
#include "app/ModalDialog.h"
#include "app/OpenDialog.h"
#include "app/QtText.h"
#include "app/SaveDialog.h"

#include <QApplication>

namespace quorvane {
namespace {

/// @return nothing also when the dialog ended with its window
std::optional<std::string> NameFrom(const QPointer<FileDialog>& dialog)
{
    if (!RunModally(dialog.data()))
        return std::nullopt;
    const std::optional<QString> path = dialog->ChosenPath();
    delete dialog;
    return path ? std::optional(Typed(*path)) : std::nullopt;
}

} // namespace

Answer QtPrompts::Show(const Message& message)
{
    return ShowMessageBox(message, texts_, Parent());
}

void QtPrompts::Tell(const Message& message)
{
    ShowMessageBoxLater(message, texts_, Parent());
}

std::optional<std::string> QtPrompts::AskSaveName(const SaveQuestion& question)
{
    return NameFrom(new SaveDialog(question, texts_, Parent()));
}

std::optional<std::string> QtPrompts::AskOpenName(const OpenQuestion& question)
{
    return NameFrom(new OpenDialog(question, texts_, Parent()));
}

void QtPrompts::AskSaveNameLater(const SaveQuestion& question,
                                 const std::function<void(const std::string&)>& chosen)
{
    auto* const dialog = new SaveDialog(question, texts_, Parent());
    QObject::connect(dialog, &QDialog::accepted, dialog, [dialog, chosen] {
        if (const std::optional<QString> path = dialog->ChosenPath())
            chosen(Typed(*path));
    });
    ShowModally(*dialog);
}

QWidget* QtPrompts::Parent() const
{
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    if (window_ && !window_->isEnabled()) // for the sake of a dialog that stands before it
        for (QDialog* const dialog : window_->findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly))
            if (dialog->isVisible() && dialog->isEnabled())
                return dialog;
    return window_;
}

} // namespace quorvane
