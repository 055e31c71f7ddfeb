#include "app/MessageBox.h"

#include "app/ModalDialog.h"
#include "app/ProgramFont.h"
#include "app/QtText.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QLabel>
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

/// A box and what its buttons mean.
struct AnswerBox {
    QPointer<QMessageBox> box; ///< its parent may end before it
    QAbstractButton* yes = nullptr;
    QAbstractButton* no = nullptr;
    Answer otherwise = Answer::Ok; ///< of Enter, and of a box without an answer

    [[nodiscard]] Answer Given() const
    {
        const QAbstractButton* const clicked = box->clickedButton();
        if (clicked != nullptr && clicked == yes)
            return Answer::Yes;
        return clicked != nullptr && clicked == no ? Answer::No : otherwise;
    }
};

/// The toolkit gives this label no format and no selection of its own.
void SetDetail(QMessageBox& box, const QString& detail)
{
    box.setInformativeText(detail);
    for (QLabel* const label : box.findChildren<QLabel*>())
        if (label->text() == detail) {
            label->setTextFormat(Qt::PlainText);
            label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        }
}

AnswerBox NewBox(const Message& message, const Texts& texts, QWidget* parent, WayOut wayOut)
{
    AnswerBox made{.box = new QMessageBox(parent)};
    QMessageBox& box = *made.box;
    SetWindowFont(box, texts);
    box.setWindowTitle(Shown(texts[message.titleId]));
    box.setIcon(ToolkitIcon(message.icon));
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setText(Shown(message.text).replace(u"\r\n"_qs, u"\n"_qs));
    if (!message.detail.empty())
        SetDetail(box, Shown(message.detail));
    if (message.buttons == Buttons::Ok) {
        box.addButton(Shown(texts[kOkText]), QMessageBox::AcceptRole);
        return made;
    }
    // The toolkit takes a button of the No role for the answer to Escape.
    const bool escapeIsNo = wayOut == WayOut::EscapeIsNo;
    auto* const yes = box.addButton(Shown(texts[kYesText]), QMessageBox::YesRole);
    auto* const no =
        box.addButton(Shown(texts[kNoText]), escapeIsNo ? QMessageBox::NoRole : QMessageBox::ActionRole);
    box.setDefaultButton(escapeIsNo ? no : yes);
    made.yes = yes;
    made.no = no;
    made.otherwise = escapeIsNo ? Answer::No : Answer::Yes;
    return made;
}

} // namespace

Answer ShowMessageBox(const Message& message, const Texts& texts, QWidget* parent, WayOut wayOut)
{
    const AnswerBox box = NewBox(message, texts, parent, wayOut);
    if (!RunModally(box.box.data()))
        return box.otherwise;
    const Answer answer = box.Given();
    delete box.box;
    return answer;
}

void ShowMessageBoxLater(const Message& message, const Texts& texts, QWidget* parent,
                         const std::function<void(Answer)>& answered, WayOut wayOut)
{
    const AnswerBox box = NewBox(message, texts, parent, wayOut);
    if (answered)
        QObject::connect(box.box, &QDialog::finished, box.box, [box, answered] { answered(box.Given()); });
    ShowModally(*box.box);
}

} // namespace quorvane
