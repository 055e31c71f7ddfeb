#include "measure/LimitInput.h"

#include "app/ApplicationState.h"
#include "files/NumberText.h"

#include <string>

namespace quorvane {
namespace {

constexpr int kOutOfRangeText = 220;
constexpr int kInstrumentSettingTitle = 161;

} // namespace

bool LimitInput::TextChanged(std::string_view text, std::string_view decimalSign)
{
    if (text.empty())
        return true;
    std::string number(text);
    if (const std::size_t sign = number.find(decimalSign); sign != std::string::npos && !decimalSign.empty())
        number.replace(sign, decimalSign.size(), ".");
    const double value = LeadingNumber(number);
    if (!(value >= 0 && value <= kHighestAlarmLimit))
        return false;
    limit_ = value;
    return true;
}

bool LimitInput::IsValid() const
{
    return limit_ >= kLowestAlarmLimit && limit_ <= kHighestAlarmLimit;
}

Message LimitRangeMessage(const Texts& texts)
{
    const std::string range =
        "(" + GeneralText(kLowestAlarmLimit) + "-" + GeneralText(kHighestAlarmLimit) + ")";
    // The title is another dialog's; it is kept as the operators know it.
    return {.text = texts[kOutOfRangeText] + range,
            .icon = Icon::Critical,
            .titleId = kInstrumentSettingTitle,
            .buttons = Buttons::Ok};
}

} // namespace quorvane
