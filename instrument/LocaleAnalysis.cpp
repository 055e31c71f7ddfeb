#include "instrument/LocaleAnalysis.h"

#include "app/Utf8.h"
#include "instrument/DateFields.h"
#include "instrument/DateTimeText.h"

namespace quorvane {
namespace {

std::int16_t Flag(const std::string& item)
{
    return item == "1" ? 1 : 0;
}

std::string FirstCharacter(const std::string& text)
{
    std::size_t length = text.empty() ? 0 : 1;
    while (length < text.size() && !BeginsCharacter(text[length]))
        ++length;
    return text.substr(0, length);
}

} // namespace

void AnalyseLocale(LocaleDescription& description, const LocaleItems& locale, LocalMoment now)
{
    description.ShortDateFormat = locale.ShortDateFormat();
    description.DateSeparator = FirstCharacter(locale.DateSeparator());
    description.YearDigits = locale.Century() == "0" ? 2 : 4;
    description.DayLeadingZero = Flag(locale.DayLeadingZero());
    description.MonthLeadingZero = Flag(locale.MonthLeadingZero());
    description.DateOrder = DateOrderOf(description.ShortDateFormat);
    description.TimeFormat = locale.TimeFormat();
    description.TimeSeparator = locale.TimeSeparator();
    description.HourLeadingZero = Flag(locale.HourLeadingZero());

    // Not from the format: "d.M.yyyy" is shorter than most dates it makes.
    const std::string today = TextInPattern(now, description.ShortDateFormat, locale);
    const DateFields fields = CutDate(today, description);
    description.YearPos = fields.year.position;
    description.MonthPos = fields.month.position;
    description.DayPos = fields.day.position;
}

} // namespace quorvane
