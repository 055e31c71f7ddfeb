#include "app/QtPrompts.h"

#include "app/MessageBox.h"
#include "app/ModalDialog.h"
#include "app/QtText.h"
#include "app/SaveDialog.h"

#include <QApplication>

namespace quorvane {

Answer QtPrompts::Show(const Message& message)
{
    return ShowMessageBox(message, texts_, Parent());
}

std::optional<std::string> QtPrompts::AskSaveName(const SaveQuestion& question)
{
    const QPointer<SaveDialog> dialog = new SaveDialog(question, texts_, Parent());
    if (!RunModally(dialog.data()))
        return std::nullopt;
    const std::optional<QString> path = dialog->ChosenPath();
    delete dialog;
    return path ? std::optional(Typed(*path)) : std::nullopt;
}

QWidget* QtPrompts::Parent() const
{
    QWidget* const modal = QApplication::activeModalWidget();
    return modal ? modal : window_.data();
}

} // namespace quorvane
