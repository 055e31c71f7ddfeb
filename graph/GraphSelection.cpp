#include "graph/GraphSelection.h"

#include <algorithm>

namespace quorvane {

std::string CaptionOf(const GraphChoice& choice, const Texts& texts)
{
    std::string caption = texts[choice.name];
    if (choice.addition != 0)
        caption += texts[choice.addition];
    if (choice.unit != 0)
        caption.append(" ").append(texts[choice.unit]);
    return caption;
}

void GraphSelection::Count()
{
    relativeCount_ = CountOf(GraphGroup::Relative);
    massCount_ = CountOf(GraphGroup::Mass);
}

std::int16_t GraphSelection::CountOf(GraphGroup group) const
{
    return static_cast<std::int16_t>(std::ranges::count_if(kGraphChoices, [&](const GraphChoice& choice) {
        return choice.group == group && IsChecked(choice);
    }));
}

bool GraphSelection::IsEnabled(const GraphChoice& choice) const
{
    if (choice.group == GraphGroup::Relative)
        return relativeCount_ > 0 || massCount_ == 0;
    return relativeCount_ == 0;
}

bool GraphSelection::Close()
{
    Count();
    if (relativeCount_ == 0 && massCount_ == 0) { // before anything else, so that Cancel is held, too
        OkPressed = false;
        return false;
    }
    if (!OkPressed)
        flags_ = before_;
    return true;
}

Message NoGraphMessage(const Texts& texts)
{
    return {.text = texts[kNoGraphText]};
}

} // namespace quorvane
