#include "measure/LimitInputs.h"

#include "app/CheckedBox.h"
#include "files/NumberText.h"
#include "measure/LimitInput.h"

#include <utility>

namespace quorvane {
namespace {

CheckedInputs::Input InputOf(CheckedBox* box, double& limit, const LocaleItems& locale, const Texts& texts)
{
    LimitInput input(limit);
    return {
        .box = box,
        .edited =
            [input, &locale](std::string_view text) mutable {
                return input.TextChanged(text, locale.DecimalSign());
            },
        .left = [input](std::string_view /*text*/) { return input.IsValid(); },
        .stored = [input, &locale] { return GeneralText(input.Limit(), locale.DecimalSign()); },
        .refusal = [&texts] { return LimitRangeMessage(texts); },
    };
}

} // namespace

LimitInputs::LimitInputs(AlarmLimits& limits, const std::array<CheckedBox*, 3>& boxes,
                         const LocaleItems& locale, const Texts& texts,
                         std::function<void(const Message&)> tell)
    : boxes_(boxes),
      inputs_({InputOf(boxes[0], limits.TwaAlarm, locale, texts),
               InputOf(boxes[1], limits.StelAlarm, locale, texts),
               InputOf(boxes[2], limits.CAlarm, locale, texts)},
              std::move(tell))
{
    for (const CheckedBox* const box : boxes_)
        QObject::connect(box, &QLineEdit::returnPressed, &inputs_, [this, box] { inputs_.Check(box); });
}

void LimitInputs::SetEnabled(bool enabled)
{
    for (CheckedBox* const box : boxes_)
        box->setEnabled(enabled);
}

} // namespace quorvane
