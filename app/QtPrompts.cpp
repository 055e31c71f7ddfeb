#include "app/QtPrompts.h"

#include "app/MessageBox.h"
#include "app/ModalDialog.h"
#include "app/QtText.h"
#include "app/SaveDialog.h"

#include <QApplication>

namespace quorvane {
namespace {

class Counted {
public:
    explicit Counted(int& count) : count_(count) { ++count_; }
    ~Counted() { --count_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

private:
    int& count_;
};

} // namespace

Answer QtPrompts::Show(const Message& message)
{
    const Counted counted(open_);
    return ShowMessageBox(message, texts_, Parent());
}

std::optional<std::string> QtPrompts::AskSaveName(const SaveQuestion& question)
{
    const Counted counted(open_);
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
