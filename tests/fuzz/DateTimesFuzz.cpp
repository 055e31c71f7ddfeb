#include "instrument/DateNormaliser.h"
#include "instrument/DateTimeText.h"
#include "instrument/LocaleAnalysis.h"
#include "instrument/StartDate.h"
#include "instrument/TimeNormaliser.h"
#include "measure/ReadingClock.h"
#include "tests/fuzz/Hold.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/FixedLocale.h"

#include <algorithm>
#include <cstdint>

namespace quorvane {
namespace {

using namespace std::chrono;

/// Whether `text` has the form of `shape`, in which "0" stands for any digit.
bool HasForm(std::string_view text, std::string_view shape)
{
    return std::ranges::equal(text, shape, [](char one, char form) {
        return form == '0' ? one >= '0' && one <= '9' : one == form;
    });
}

/// A moment of 1980 to 2079, the years that two digits can mean.
LocalMoment MomentOf(std::string_view text)
{
    std::uint64_t number = 14695981039346656037U;
    for (const char c : text)
        number = (number ^ static_cast<unsigned char>(c)) * 1099511628211U;
    constexpr auto kFirst = local_days(year(1980) / 1 / 1);
    constexpr auto kDays = (local_days(year(2080) / 1 / 1) - kFirst).count();
    return kFirst + days(number % kDays) + seconds(number / kDays % 86400);
}

/// Whether anybody can read back what is written by the pattern: each field once, one and the same separator
/// between them.
bool IsUsual(std::string_view pattern, std::string_view letters)
{
    const std::size_t at = pattern.find_first_of("/.-:");
    if (at == std::string_view::npos)
        return false;
    const char separator = pattern[at];
    std::string left(letters);
    while (!left.empty()) {
        const std::string text = CutTo(pattern, separator);
        if (text.empty() || text.find_first_not_of(text[0]) != std::string::npos ||
            std::erase(left, text[0]) == 0)
            return false;
    }
    return pattern.empty();
}

/// As the instrument writes a date and a time of day.
std::string InstrumentDate(LocalMoment moment)
{
    FixedLocale own;
    return TextInPattern(moment, "yyyy/MM/dd", own);
}

void HoldTexts(const FixedLocale& locale, const std::string& text, LocalMoment now)
{
    LocaleDescription description;
    const StringTable table(TableLanguage::English);
    const ProgramPlace place;
    const Texts texts(table, place);

    const std::string date = NormalisedDate(text, description, locale, now);
    Hold(HasForm(date, "0000/00/00") || date == "00/00/00", "a date has the instrument's form");
    Hold(description.YearDigits == 2 || description.YearDigits == 4, "years of two or four digits");
    Hold(description.DateOrder >= 1 && description.DateOrder <= 6, "one of six orders");
    const std::string asked = RequestDate(text, description, locale, now);
    Hold(asked.empty() || HasForm(asked, "0000/00/00"), "a start date has the field's ten characters");
    static_cast<void>(CheckStartDate(text, description, locale, now));
    // Where nothing stands between hour and minutes, or digits stand in the system's words, the afternoon's
    // 12 hours may be added to something else. No system writes its times like that.
    const std::string time = NormalisedTime(description, locale, texts, now);
    Hold(HasForm(time, "00:00:00") || HasForm(time, "000:00:00"), "a time has the instrument's form");

    // The year 2000 with two digits is "00", which leaves a date open.
    const bool yearIsOpen =
        description.YearDigits == 2 && year_month_day(floor<days>(now)).year() == year(2000);
    if (IsUsual(locale.shortDateFormat, "yMd") && !yearIsOpen)
        Hold(NormalisedDate(SystemDateText(now, locale), description, locale, now) == InstrumentDate(now),
             "today's date is read as it was written");
    const std::string& format = locale.timeFormat;
    if (IsUsual(format, "Hms") && format.find('H') < format.find('m') && format.find('m') < format.find('s'))
        Hold(NormalisedTime(description, locale, texts, now) == InstrumentTimeText(now), "so is the time");
}

/// The rest of the input are the times of readings.
void HoldClock(std::string_view times, LocalMoment start)
{
    ReadingClock clock;
    clock.Begin(start);
    bool any = false;
    LocalMoment previous{};
    while (!times.empty()) {
        const std::string text = CutTo(times, '\n');
        const auto time = TimeOfDay(text);
        Hold(!time || (*time >= 0s && *time < 24h), "a time of day lies in a day");
        const LocalMoment moment = clock.Next(text);
        Hold(!any || moment >= previous, "dates never run backwards");
        Hold(moment - (any ? previous : start) < 24h, "nor by a day forwards");
        previous = moment;
        any = true;
    }
}

} // namespace

/// Lines: date pattern, time pattern, sign of the afternoon, a text that may be a date, times of readings.
void TryDateTimes(std::string_view input)
{
    const LocalMoment now = MomentOf(input);
    FixedLocale locale;
    locale.shortDateFormat = CutTo(input, '\n');
    locale.timeFormat = CutTo(input, '\n');
    locale.afternoonSign = CutTo(input, '\n');
    const std::string text = CutTo(input, '\n');
    HoldTexts(locale, text, now);
    HoldClock(input, now);
    Hold(TimeOfDay(InstrumentTimeText(now)) == now - floor<days>(now), "the program's own times can be read");
}

} // namespace quorvane
