#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// Why a start date is refused.
enum class StartDateFault {
    Shape, ///< it is not written as the user's system writes a short date
    Day,   ///< there is no such month, or no such day in it
};

/// Holds a start date against the user's short dates; reads the regional settings into `description` first.
///
/// A year of only zeros leaves the date open: nothing else is looked at then. Otherwise the second and the
/// third field have to stand behind `DateSeparator`, or behind what stands there in today's date. Year, month
/// and day are then read at `YearPos`, `MonthPos` and `DayPos`, which are today's places and not those of
/// `text`; a month or day of 0 passes. What is refused there passes all the same when `NormalisedDate` makes
/// a day of it that exists.
///
/// @return nothing when it passes
[[nodiscard]] std::optional<StartDateFault> CheckStartDate(std::string_view text,
                                                           LocaleDescription& description,
                                                           const LocaleItems& locale, LocalMoment now);

/// Days of a month as the start date is checked: 29 for a February whose year can be divided by 4 and not by
/// 100, 31 for all that is no month. The rule of 400 years is left out on purpose: February 2000 has 28.
[[nodiscard]] int DaysInMonth(int year, int month);

/// The start date as the instrument gets it: "yyyy/MM/dd", "0000/00/00" for a year that is left open or not
/// usable. Reads the regional settings into `description` first.
///
/// @return an empty text unless `text` has 8, 9 or 10 characters
[[nodiscard]] std::string RequestDate(std::string_view text, LocaleDescription& description,
                                      const LocaleItems& locale, LocalMoment now);

} // namespace quorvane
