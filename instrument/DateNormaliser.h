#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"

#include <string>
#include <string_view>

namespace quorvane {

/// A date as the user's system writes it, in the instrument's form "yyyy/MM/dd": always ten digits and
/// slashes, but for the eight of the two-digit error text. Reads the regional settings into `description`
/// first.
///
/// A year of one or two digits lies in 1980 to 2079. Blanks, and words that blanks or characters beyond ASCII
/// set apart, are dropped from the fields. A month or day that is missing or not one or two digits is "00";
/// no field is held against a calendar.
///
/// @return "00/00/00" (regional settings with years of two digits) or "0000/00/00" for a year of only zeros
///         and one that is not one, two or four digits
[[nodiscard]] std::string NormalisedDate(std::string_view text, LocaleDescription& description,
                                         const LocaleItems& locale, LocalMoment now);

} // namespace quorvane
