#include "app/RangeMessage.h"

#include "files/NumberText.h"

namespace quorvane {

Message RangeMessage(const Texts& texts, double lowest, double highest, int titleId)
{
    std::string text = texts[kOutOfRangeText];
    text.append("(").append(GeneralText(lowest));
    text.append("-").append(GeneralText(highest)).append(")");
    return {.text = text, .icon = Icon::Critical, .titleId = titleId, .buttons = Buttons::Ok};
}

} // namespace quorvane
