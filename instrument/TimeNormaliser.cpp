#include "instrument/TimeNormaliser.h"

#include "files/NumberText.h"
#include "instrument/DateTimeText.h"
#include "instrument/LocaleAnalysis.h"
#include "instrument/LocalePattern.h"
#include "resources/SystemTexts.h"

#include <algorithm>
#include <string_view>

namespace quorvane {
namespace {

constexpr std::string_view kTimeDigits = "0123456789";
constexpr int kHalfDay = 12;

/// The program's two words for the afternoon have two characters; the system's own has any number of them,
/// and may be in another language than the program's.
bool IsAfternoon(std::string_view textFromMarker, const LocaleItems& locale, const Texts& texts)
{
    const auto begins = [&](const std::string& sign) {
        return !sign.empty() && textFromMarker.starts_with(sign);
    };
    const std::string ownSign = locale.AfternoonSign();
    return begins(texts[kAfternoonText]) || begins(texts[kAfternoonAgainText]) ||
           (begins(ownSign) && ownSign != locale.MorningSign());
}

/// Takes the next number of one or two digits, 0 when there is none. What stands before it has no digits: a
/// separator, or the sign of the half of the day with or without a blank behind it.
int TakeNumber(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_of(kTimeDigits), text.size()));
    const std::size_t length = std::min({text.find_first_not_of(kTimeDigits), text.size(), std::size_t{2}});
    const double number = LeadingNumber(text.substr(0, length));
    text.remove_prefix(length);
    return static_cast<int>(number);
}

std::string TwoDigits(int number)
{
    return PatternText(number, {2, 0, 0});
}

} // namespace

std::string NormalisedTime(LocaleDescription& description, const LocaleItems& locale, const Texts& texts,
                           LocalMoment now)
{
    AnalyseLocale(description, locale, now);
    // Written in two parts, so that the marker is found however many digits the fields before it have.
    const std::string_view format = description.TimeFormat;
    const std::size_t marker = std::min(FindField(format, "t").begin, format.size());
    const std::string beforeMarker = TextInPattern(now, format.substr(0, marker), locale);
    const std::string fromMarker = TextInPattern(now, format.substr(marker), locale);

    // A marker beside a 24-hour clock says nothing that the hour does not say.
    const bool twelveHours = FindField(format, "h").length > 0;
    const int offset = twelveHours && IsAfternoon(fromMarker, locale, texts) ? kHalfDay : 0;

    const std::string text = beforeMarker + fromMarker;
    std::string_view rest = text;
    const int hour = TakeNumber(rest) + offset; // meant: no exception for 12
    const int minutes = TakeNumber(rest);
    const int seconds = TakeNumber(rest);
    return TwoDigits(hour) + ":" + TwoDigits(minutes) + ":" + TwoDigits(seconds);
}

} // namespace quorvane
