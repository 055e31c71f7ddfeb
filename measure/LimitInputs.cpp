#include "measure/LimitInputs.h"

#include "app/QtText.h"
#include "app/ScopedFlag.h"
#include "files/NumberText.h"
#include "measure/LimitBox.h"

#include <utility>

namespace quorvane {

LimitInputs::LimitInputs(AlarmLimits& limits, const std::array<LimitBox*, 3>& boxes,
                         const LocaleItems& locale, const Texts& texts,
                         std::function<void(const Message&)> tell)
    : rows_{Row{boxes[0], LimitInput(limits.TwaAlarm)}, Row{boxes[1], LimitInput(limits.StelAlarm)},
            Row{boxes[2], LimitInput(limits.CAlarm)}},
      locale_(locale),
      texts_(texts),
      tell_(std::move(tell))
{
    for (Row& row : rows_) {
        connect(row.box, &QLineEdit::textEdited, this, [this, &row] { TextEdited(row); });
        connect(row.box, &QLineEdit::returnPressed, this, [this, &row] { ValidateRow(row); });
        connect(row.box, &LimitBox::Left, this, [this, &row] { Leave(row); });
    }
}

void LimitInputs::Fill()
{
    for (const Row& row : rows_)
        ShowLimit(row);
}

bool LimitInputs::Validate()
{
    for (Row& row : rows_) {
        if (!ValidateRow(row))
            return false;
    }
    return true;
}

void LimitInputs::SetEnabled(bool enabled)
{
    for (const Row& row : rows_)
        row.box->setEnabled(enabled);
}

void LimitInputs::TextEdited(Row& row)
{
    if (!row.input.TextChanged(Typed(row.box->text()), locale_.DecimalSign()))
        Refuse(row);
}

/// Told when the change of focus is over: a box that opens in the middle of it would leave the pressed button
/// down and the focus nowhere.
void LimitInputs::Leave(Row& row)
{
    const auto look = [this, &row] {
        if (!telling_ && row.box->isEnabled() && !row.box->hasFocus())
            ValidateRow(row);
    };
    QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

bool LimitInputs::ValidateRow(Row& row)
{
    if (row.input.IsValid()) {
        ShowLimit(row); // what was typed may have been empty, or have had more behind the number
        return true;
    }
    Refuse(row);
    return false;
}

void LimitInputs::Refuse(Row& row)
{
    if (telling_)
        return;
    {
        const ScopedFlag telling(telling_);
        tell_(LimitRangeMessage(texts_));
    }
    ShowLimit(row);
    row.box->setFocus();
    row.box->selectAll();
}

void LimitInputs::ShowLimit(const Row& row)
{
    row.box->setText(Shown(GeneralText(row.input.Limit(), locale_.DecimalSign())));
}

} // namespace quorvane
