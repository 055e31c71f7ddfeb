#include "app/CheckedInputs.h"

#include "app/CheckedBox.h"
#include "app/QtText.h"
#include "app/ScopedFlag.h"

#include <algorithm>
#include <utility>

namespace quorvane {
namespace {

/// A Japanese input method writes digits of full width; they are digits all the same.
std::string TypedText(const CheckedBox& box)
{
    return Typed(box.text().normalized(QString::NormalizationForm_KC));
}

/// Leaves the cursor where it is when nothing changes.
void ShowStored(const CheckedInputs::Input& input)
{
    if (const QString text = Shown(input.stored()); text != input.box->text())
        input.box->setText(text);
}

} // namespace

CheckedInputs::CheckedInputs(std::vector<Input> inputs, std::function<void(const Message&)> tell)
    : inputs_(std::move(inputs)), tell_(std::move(tell))
{
    for (const Input& input : inputs_) {
        connect(input.box, &QLineEdit::textEdited, this, [this, &input] { Edited(input); });
        connect(input.box, &CheckedBox::Left, this, [this, &input] { Leave(input); });
    }
}

void CheckedInputs::Fill()
{
    std::ranges::for_each(inputs_, ShowStored);
    edited_.clear();
}

bool CheckedInputs::Validate()
{
    return std::ranges::all_of(inputs_, [this](const Input& input) { return CheckInput(input); });
}

bool CheckedInputs::Check(const CheckedBox* box)
{
    const auto input = std::ranges::find(inputs_, box, &Input::box);
    return input == inputs_.end() || CheckInput(*input);
}

bool CheckedInputs::CheckEdited()
{
    return std::ranges::all_of(
        inputs_, [this](const Input& input) { return !edited_.contains(input.box) || CheckInput(input); });
}

void CheckedInputs::TakeEdited()
{
    for (const Input& input : inputs_)
        if (edited_.contains(input.box))
            static_cast<void>(input.left(TypedText(*input.box)));
    edited_.clear();
}

void CheckedInputs::Edited(const Input& input)
{
    edited_.insert(input.box);
    if (!input.edited(TypedText(*input.box)))
        Refuse(input);
}

/// Told when the change of focus is over: a box that opens in the middle of it would leave the pressed button
/// down and the focus nowhere.
void CheckedInputs::Leave(const Input& input)
{
    const auto look = [this, &input] {
        const CheckedBox& box = *input.box;
        const bool givingUp = wayOut_ != nullptr && wayOut_->hasFocus();
        if (!telling_ && !givingUp && box.isVisible() && box.isEnabled() && !box.hasFocus())
            CheckInput(input);
    };
    QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

bool CheckedInputs::CheckInput(const Input& input)
{
    if (input.left(TypedText(*input.box))) {
        edited_.erase(input.box);
        ShowStored(input); // what was typed may have been empty, or have had more behind the number
        return true;
    }
    Refuse(input);
    return false;
}

void CheckedInputs::Refuse(const Input& input)
{
    if (telling_)
        return;
    {
        const ScopedFlag telling(telling_);
        tell_(input.refusal());
    }
    ShowStored(input);
    input.box->setFocus();
    input.box->selectAll();
}

} // namespace quorvane
