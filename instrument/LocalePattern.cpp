#include "instrument/LocalePattern.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr std::string_view kAllLetters = "yMdHhmst";

} // namespace

PatternField FindField(std::string_view pattern, std::string_view letters)
{
    bool quoted = false;
    for (std::size_t begin = 0; begin < pattern.size(); ++begin) {
        const char letter = pattern[begin];
        if (letter == '\'')
            quoted = !quoted;
        else if (!quoted && letters.find(letter) != std::string_view::npos)
            return {begin, std::min(pattern.find_first_not_of(letter, begin), pattern.size()) - begin};
    }
    return {};
}

std::string SeparatorAfter(std::string_view pattern, std::string_view letters)
{
    const PatternField field = FindField(pattern, letters);
    if (field.length == 0)
        return {};
    const std::string_view rest = pattern.substr(field.begin + field.length);
    const PatternField next = FindField(rest, kAllLetters);
    if (next.length == 0)
        return {};
    std::string separator(rest.substr(0, next.begin));
    std::erase(separator, '\'');
    return separator;
}

std::string LeadingZeroItem(std::string_view pattern, std::string_view letters)
{
    return FindField(pattern, letters).length > 1 ? "1" : "0";
}

std::string CenturyItem(std::string_view datePattern)
{
    return FindField(datePattern, "y").length > 2 ? "1" : "0";
}

} // namespace quorvane
