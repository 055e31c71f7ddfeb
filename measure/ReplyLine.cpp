#include "measure/ReplyLine.h"

#include "files/NumberText.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr char kSeparator = ';';
/// A line of this length has no fourth field, whatever stands in it.
constexpr std::size_t kThreeFieldLength = 25;

/// Cuts the text before the next separator off `rest`; all of it when there is none.
std::string_view CutField(std::string_view& rest)
{
    const std::size_t end = rest.find(kSeparator);
    const std::string_view field = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return field;
}

} // namespace

Reading ParseReplyLine(std::string_view line)
{
    Reading reading;
    if (line.find(kSeparator) == std::string_view::npos)
        return reading; // nothing in it can be told apart from noise

    std::string_view rest = line;
    reading.time = CutField(rest);
    reading.count = std::max(0.0, LeadingDecimal(CutField(rest)));
    const bool hasFourthField =
        line.size() != kThreeFieldLength && rest.find(kSeparator) != std::string_view::npos;
    reading.conc = std::max(0.0, LeadingDecimal(CutField(rest)));
    if (hasFourthField)
        reading.extra = GeneralText(LeadingDecimal(rest));
    return reading;
}

} // namespace quorvane
