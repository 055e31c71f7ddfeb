#include "instrument/DateNormaliser.h"

#include "files/NumberText.h"
#include "instrument/DateFields.h"
#include "instrument/LocaleAnalysis.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr int kFirstYear = 1980; ///< the earliest that two digits mean

bool IsWordCharacter(char c)
{
    return c > ' ' && c <= '~';
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The first word of a field that is all digits, with up to `maxDigits`: some systems write "5. 3. 2024 г.".
std::string_view Number(std::string_view field, std::size_t maxDigits)
{
    auto word = field.begin();
    while ((word = std::find_if(word, field.end(), IsWordCharacter)) != field.end()) {
        const auto end = std::find_if_not(word, field.end(), IsWordCharacter);
        const std::string_view text(word, end);
        if (text.size() <= maxDigits && std::all_of(word, end, IsDigit))
            return text;
        word = end;
    }
    return {};
}

/// Four digits, or nothing for a year that is not usable.
std::string Year(std::string_view digits)
{
    const bool onlyZeros = digits.find_first_not_of('0') == std::string_view::npos;
    if (onlyZeros || // meant: "00" is a year left open, not 2000
        digits.size() == 3)
        return {};
    double year = LeadingNumber(digits);
    if (digits.size() < 3)
        year += year < kFirstYear % 100 ? 2000 : 1900;
    return PatternText(year, {4, 0, 0});
}

std::string TwoDigits(const DateField& field)
{
    return PatternText(LeadingNumber(Number(field.text, 2)), {2, 0, 0});
}

} // namespace

std::string NormalisedDate(std::string_view text, LocaleDescription& description, const LocaleItems& locale,
                           LocalMoment now)
{
    AnalyseLocale(description, locale, now);
    const DateFields fields = CutDate(text, description);
    const std::string year = Year(Number(fields.year.text, 4));
    if (year.empty())
        return description.YearDigits == 2 ? "00/00/00" : "0000/00/00";
    return year + "/" + TwoDigits(fields.month) + "/" + TwoDigits(fields.day);
}

} // namespace quorvane
