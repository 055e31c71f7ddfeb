#include "app/MessageBox.h"

#include "app/ModalDialog.h"
#include "app/QtText.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QMessageBox>
#include <QPushButton>

namespace quorvane {
namespace {

QMessageBox::Icon ToolkitIcon(Icon icon)
{
    switch (icon) {
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

Answer ShowMessageBox(const Message& message, const Texts& texts, QWidget* parent, WayOut wayOut)
{
    const QPointer<QMessageBox> box = new QMessageBox(parent); // its parent may end before it
    box->setWindowTitle(Shown(texts[message.titleId]));
    box->setIcon(ToolkitIcon(message.icon));
    box->setTextFormat(Qt::PlainText);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->setText(Shown(message.text).replace(u"\r\n"_qs, u"\n"_qs));

    if (message.buttons == Buttons::Ok) {
        box->addButton(Shown(texts[kOkText]), QMessageBox::AcceptRole);
        if (RunModally(box.data()))
            delete box;
        return Answer::Ok;
    }

    // The toolkit takes a button of the No role for the answer to Escape.
    const bool escapeIsNo = wayOut == WayOut::EscapeIsNo;
    auto* const yes = box->addButton(Shown(texts[kYesText]), QMessageBox::YesRole);
    auto* const no =
        box->addButton(Shown(texts[kNoText]), escapeIsNo ? QMessageBox::NoRole : QMessageBox::ActionRole);
    box->setDefaultButton(escapeIsNo ? no : yes);
    Answer answer = escapeIsNo ? Answer::No : Answer::Yes;
    if (!RunModally(box.data()))
        return answer;
    if (box->clickedButton() == yes)
        answer = Answer::Yes;
    if (box->clickedButton() == no)
        answer = Answer::No;
    delete box;
    return answer;
}

} // namespace quorvane
