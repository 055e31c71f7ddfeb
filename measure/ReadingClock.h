#pragma once

#include "app/LocalClock.h"

#include <optional>
#include <string_view>

namespace quorvane {

/// The time of day of a reading: "hh:mm:ss", 24 hours; fields of one digit are taken too.
/// @return seconds since midnight, or nothing when it is no time of day
[[nodiscard]] std::optional<std::chrono::seconds> TimeOfDay(std::string_view text);

/// Gives each reading its date-time. The instrument sends only a time of day, by a clock that may be some
/// seconds off the computer's; the date-times made of it never run backwards:
/// a time of day more than 12 hours before the previous one is the next day, one less than that before it
/// counts as the previous instant, and an unreadable one takes the previous date-time (at first the start's).
class ReadingClock {
public:
    /// @param start  the computer's date and time at the start of the run
    void Begin(LocalMoment start);
    /// The first reading belongs to the day of the start, unless midnight lies between the two clocks.
    [[nodiscard]] LocalMoment Next(std::string_view timeText);

private:
    [[nodiscard]] static LocalMoment First(LocalMoment start, std::chrono::seconds timeOfDay);
    [[nodiscard]] static LocalMoment Following(LocalMoment previous, std::chrono::seconds timeOfDay);

    LocalMoment previous_{};       ///< as it was given out
    LocalMoment previousRead_{};   ///< by the instrument's clock
    std::chrono::seconds shift_{}; ///< between the two
    bool anyGiven_ = false;
    bool anyRead_ = false;
};

} // namespace quorvane
