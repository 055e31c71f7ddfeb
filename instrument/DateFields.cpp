#include "instrument/DateFields.h"

#include "app/Utf8.h"
#include "instrument/LocalePattern.h"

#include <algorithm>
#include <array>
#include <string>

namespace quorvane {
namespace {

constexpr std::string_view kDigits = "0123456789";

/// `DateOrder` 1 to 6, in pattern letters.
constexpr std::array<std::string_view, 6> kOrders = {"yMd", "ydM", "Mdy", "Myd", "dMy", "dyM"};

std::int16_t PositionOf(std::size_t byte, std::string_view text)
{
    const std::string_view before = text.substr(0, byte);
    return static_cast<std::int16_t>(1 + std::count_if(before.begin(), before.end(), BeginsCharacter));
}

std::size_t NextNumber(std::string_view text, std::size_t begin)
{
    const std::size_t number = text.find_first_of(kDigits, begin);
    return text.find_first_of(kDigits, text.find_first_not_of(kDigits, number));
}

} // namespace

std::int16_t DateOrderOf(std::string_view shortDateFormat)
{
    std::string letters = "yMd";
    const auto place = [&](char letter) { return FindField(shortDateFormat, {&letter, 1}).begin; };
    std::stable_sort(letters.begin(), letters.end(), [&](char a, char b) { return place(a) < place(b); });
    return static_cast<std::int16_t>(1 +
                                     (std::find(kOrders.begin(), kOrders.end(), letters) - kOrders.begin()));
}

DateFields CutDate(std::string_view text, const LocaleDescription& description)
{
    DateFields fields;
    const std::string_view separator = description.DateSeparator;
    const auto order =
        static_cast<std::size_t>(std::clamp<int>(description.DateOrder, 1, kOrders.size()) - 1);
    std::size_t begin = 0;
    for (const char letter : kOrders.at(order)) {
        const std::size_t end = separator.empty() ? std::string_view::npos : text.find(separator, begin);
        DateField& field = letter == 'y' ? fields.year : letter == 'M' ? fields.month : fields.day;
        field = {PositionOf(begin, text), text.substr(begin, end - begin)};
        begin = end != std::string_view::npos ? end + separator.size() : NextNumber(text, begin);
        if (begin == std::string_view::npos)
            break;
    }
    return fields;
}

} // namespace quorvane
