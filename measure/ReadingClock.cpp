#include "measure/ReadingClock.h"

#include <array>
#include <charconv>

namespace quorvane {

using namespace std::chrono_literals;
using std::chrono::days;
using std::chrono::floor;

std::optional<std::chrono::seconds> TimeOfDay(std::string_view text)
{
    constexpr std::array kLimits{24, 60, 60};
    std::chrono::seconds time = 0s;
    const char* next = text.data();
    const char* const end = next + text.size();
    for (std::size_t field = 0; field < kLimits.size(); ++field) {
        if (field > 0 && (next == end || *next++ != ':'))
            return std::nullopt;
        int value = -1;
        const auto [stop, error] = std::from_chars(next, end, value);
        if (error != std::errc() || stop - next > 2 || value < 0 || value >= kLimits.at(field))
            return std::nullopt;
        time = time * 60 + std::chrono::seconds(value);
        next = stop;
    }
    if (next != end)
        return std::nullopt;
    return time;
}

void ReadingClock::Begin(LocalMoment start)
{
    *this = {};
    previous_ = start;
}

LocalMoment ReadingClock::First(LocalMoment start, std::chrono::seconds timeOfDay)
{
    constexpr auto kFarApart = 23h; // clocks so far apart are close together, on the two sides of midnight
    const auto today = floor<days>(start);
    const LocalMoment moment = today + timeOfDay;
    if (start - moment > kFarApart)
        return moment + days(1);
    if (moment - start > kFarApart)
        return moment - days(1);
    return moment;
}

LocalMoment ReadingClock::Next(std::string_view timeText)
{
    const auto timeOfDay = TimeOfDay(timeText);
    if (timeOfDay && !anyRead_) {
        previousRead_ = First(previous_, *timeOfDay);
        // Readings without a time came before and took the computer's; the instrument's clock may be behind
        // it.
        if (anyGiven_ && previousRead_ < previous_)
            shift_ = previous_ - previousRead_;
        anyRead_ = true;
    } else if (timeOfDay) {
        previousRead_ = Following(previousRead_, *timeOfDay);
    }
    anyGiven_ = true;
    if (timeOfDay)
        previous_ = previousRead_ + shift_;
    return previous_;
}

LocalMoment ReadingClock::Following(LocalMoment previous, std::chrono::seconds timeOfDay)
{
    const LocalMoment sameDay = floor<days>(previous) + timeOfDay;
    if (sameDay >= previous)
        return sameDay;
    return previous - sameDay > 12h ? sameDay + days(1) : previous;
}

} // namespace quorvane
