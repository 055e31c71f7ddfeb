#include "instrument/StartDate.h"

#include "app/Utf8.h"
#include "files/NumberText.h"
#include "instrument/DateFields.h"
#include "instrument/DateNormaliser.h"
#include "instrument/DateTimeText.h"
#include "instrument/LocaleAnalysis.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr int kMonths = 12;
constexpr std::string_view kOpenDate = "0000/00/00";

/// So many characters from `position` on, which counts from 1; fewer where the text ends.
std::string_view Cut(std::string_view text, int position, int length)
{
    const auto byteOf = [text](int character) {
        std::size_t byte = 0;
        for (int skipped = 0; byte < text.size(); ++byte) {
            if (BeginsCharacter(text[byte]) && ++skipped == character)
                break;
        }
        return byte;
    };
    if (position < 1)
        return {};
    const std::size_t begin = byteOf(position);
    return text.substr(begin, byteOf(position + length) - begin);
}

int NumberIn(std::string_view digits)
{
    return static_cast<int>(LeadingDecimal(digits)); // of four characters at most
}

bool IsYearOpen(std::string_view year, const LocaleDescription& description)
{
    year.remove_prefix(std::min(year.find_first_not_of(' '), year.size()));
    return Cut(year, 1, description.YearDigits) == (description.YearDigits == 2 ? "00" : "0000");
}

/// Whether the fields behind the first one stand where a separator ends.
bool HasShape(std::string_view text, const DateFields& fields, const LocaleDescription& description,
              std::string_view today)
{
    const auto isSetApart = [&](const DateField& field, int positionToday) {
        if (field.position <= 1)
            return field.position == 1;
        const std::string_view before = Cut(text, field.position - 1, 1);
        // "2024年05月01日" has two separators, and `DateSeparator` is the first.
        return before == description.DateSeparator || before == Cut(today, positionToday - 1, 1);
    };
    return isSetApart(fields.year, description.YearPos) && isSetApart(fields.month, description.MonthPos) &&
           isSetApart(fields.day, description.DayPos);
}

/// Meant: today's places, also where `text` has longer or shorter fields than today's date. What is cut out
/// then is often a piece of a number, or none and counts as 0, and passes.
bool PassesAtTodaysPlaces(std::string_view text, const LocaleDescription& description)
{
    const int year = NumberIn(Cut(text, description.YearPos, description.YearDigits));
    const int month = NumberIn(Cut(text, description.MonthPos, 2));
    const int day = NumberIn(Cut(text, description.DayPos, 2));
    return month >= 0 && month <= kMonths && day >= 0 && day <= DaysInMonth(year, month);
}

/// @param date  as `NormalisedDate` gives it
bool IsDay(std::string_view date)
{
    const int month = NumberIn(Cut(date, 6, 2));
    const int day = NumberIn(Cut(date, 9, 2));
    return month >= 1 && month <= kMonths && day >= 1 && day <= DaysInMonth(NumberIn(Cut(date, 1, 4)), month);
}

} // namespace

std::optional<StartDateFault> CheckStartDate(std::string_view text, LocaleDescription& description,
                                             const LocaleItems& locale, LocalMoment now)
{
    AnalyseLocale(description, locale, now);
    const DateFields fields = CutDate(text, description);
    if (IsYearOpen(fields.year.text, description))
        return std::nullopt;
    if (!HasShape(text, fields, description, SystemDateText(now, locale)))
        return StartDateFault::Shape;
    if (PassesAtTodaysPlaces(text, description))
        return std::nullopt;
    // "31-12-2024" on the fifth of March: the month is read as "-1". A day that exists is never refused.
    if (IsDay(NormalisedDate(text, description, locale, now)))
        return std::nullopt;
    return StartDateFault::Day;
}

int DaysInMonth(int year, int month)
{
    switch (month) {
    case 2:
        return year % 4 == 0 && year % 100 != 0 ? 29 : 28; // meant: 2000 is not excepted
    case 4:
    case 6:
    case 9:
    case 11:
        return 30;
    default:
        return 31;
    }
}

std::string RequestDate(std::string_view text, LocaleDescription& description, const LocaleItems& locale,
                        LocalMoment now)
{
    const auto length = std::count_if(text.begin(), text.end(), BeginsCharacter);
    if (length < 8 || length > 10)
        return {};
    std::string date = NormalisedDate(text, description, locale, now);
    if (date.size() < kOpenDate.size())
        date = kOpenDate; // the error text of years with two digits is too short for the field
    return date;
}

} // namespace quorvane
