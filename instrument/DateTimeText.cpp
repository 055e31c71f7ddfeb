#include "instrument/DateTimeText.h"

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace quorvane {
namespace {

struct Fields {
    std::chrono::year_month_day date;
    std::chrono::hh_mm_ss<std::chrono::seconds> time;
};

Fields FieldsOf(LocalMoment moment)
{
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    return {std::chrono::year_month_day(day), std::chrono::hh_mm_ss<std::chrono::seconds>(moment - day)};
}

/// At least `digits` digits.
void AppendPadded(std::string& out, std::int64_t value, std::size_t digits)
{
    const std::string text = std::to_string(value);
    out.append(digits - std::min(digits, text.size()), '0');
    out.append(text);
}

/// One letter of a pattern, `run` times in a row. Any other character is copied.
void AppendField(std::string& out, char letter, std::size_t run, const Fields& fields,
                 const LocaleItems& locale)
{
    const std::size_t digits = std::min<std::size_t>(run, 2);
    const std::int64_t hour = fields.time.hours().count();
    switch (letter) {
    case 'y': {
        const int year = static_cast<int>(fields.date.year());
        return run > 2 ? AppendPadded(out, year, 4) : AppendPadded(out, year % 100, digits);
    }
    case 'M':
        return AppendPadded(out, static_cast<unsigned>(fields.date.month()), digits);
    case 'd':
        return AppendPadded(out, static_cast<unsigned>(fields.date.day()), digits);
    case 'H':
        return AppendPadded(out, hour, digits);
    case 'h':
        return AppendPadded(out, hour % 12 == 0 ? 12 : hour % 12, digits);
    case 'm':
        return AppendPadded(out, fields.time.minutes().count(), digits);
    case 's':
        return AppendPadded(out, fields.time.seconds().count(), digits);
    case 't':
        out.append(hour < 12 ? locale.MorningSign() : locale.AfternoonSign());
        return;
    default:
        out.append(run, letter);
    }
}

/// Apostrophes, `run` in a row: one begins or ends words that are copied, two among the words stand for one.
void AppendApostrophes(std::string& out, std::size_t run, bool& quoted)
{
    for (std::size_t i = 0; i < run; ++i) {
        if (quoted && i + 1 < run) {
            out += '\'';
            ++i;
        } else {
            quoted = !quoted;
        }
    }
}

} // namespace

std::string TextInPattern(LocalMoment moment, std::string_view pattern, const LocaleItems& locale)
{
    const Fields fields = FieldsOf(moment);
    std::string text;
    bool quoted = false; // some countries put words between apostrophes: "d.M.yyyy 'г.'"
    while (!pattern.empty()) {
        const char letter = pattern[0];
        const std::size_t run = std::min(pattern.find_first_not_of(letter), pattern.size());
        if (letter == '\'')
            AppendApostrophes(text, run, quoted);
        else if (quoted)
            text.append(run, letter);
        else
            AppendField(text, letter, run, fields, locale);
        pattern.remove_prefix(run);
    }
    return text;
}

std::string SystemDateText(LocalMoment moment, const LocaleItems& locale)
{
    return TextInPattern(moment, locale.ShortDateFormat(), locale);
}

std::string SystemTimeText(LocalMoment moment, const LocaleItems& locale)
{
    return TextInPattern(moment, locale.TimeFormat(), locale);
}

std::string SystemDateTimeText(LocalMoment moment, const LocaleItems& locale)
{
    return SystemDateText(moment, locale) + " " + SystemTimeText(moment, locale);
}

std::string FileStamp(LocalMoment moment)
{
    const Fields fields = FieldsOf(moment);
    std::string text;
    AppendPadded(text, static_cast<int>(fields.date.year()), 4);
    AppendPadded(text, static_cast<unsigned>(fields.date.month()), 2);
    AppendPadded(text, static_cast<unsigned>(fields.date.day()), 2);
    text += '-';
    AppendPadded(text, fields.time.hours().count(), 2);
    AppendPadded(text, fields.time.minutes().count(), 2);
    AppendPadded(text, fields.time.seconds().count(), 2);
    return text;
}

std::string InstrumentTimeText(LocalMoment moment)
{
    const Fields fields = FieldsOf(moment);
    std::string text;
    AppendPadded(text, fields.time.hours().count(), 2);
    text += ':';
    AppendPadded(text, fields.time.minutes().count(), 2);
    text += ':';
    AppendPadded(text, fields.time.seconds().count(), 2);
    return text;
}

} // namespace quorvane
