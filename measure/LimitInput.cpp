#include "measure/LimitInput.h"

#include "app/ApplicationState.h"
#include "app/RangeMessage.h"
#include "files/NumberText.h"

namespace quorvane {

bool LimitInput::TextChanged(std::string_view text, std::string_view decimalSign)
{
    if (text.empty())
        return true;
    const double value = TypedNumber(text, decimalSign);
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
    // The title is another dialog's; it is kept as the operators know it.
    return RangeMessage(texts, kLowestAlarmLimit, kHighestAlarmLimit, kInstrumentSettingText);
}

} // namespace quorvane
