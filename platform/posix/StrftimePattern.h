#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// A strftime date format in pattern letters: "%d.%m.%Y" is "dd.MM.yyyy". Blanks beside a separator and signs
/// after the last field are left out, for date texts are cut at single separators.
/// @return "yyyy/MM/dd" for a format that is not one year, month and day, all digits, between two equal
///         separators of one character
[[nodiscard]] std::string DatePattern(std::string_view strftimeFormat);

/// A strftime time format in pattern letters: "%I:%M:%S %p" is "hh:mm:ss tt".
/// @return "HH:mm:ss" for a format with other fields or texts, with a sign of the half of the day beside a
///         24-hour clock, or without one beside a 12-hour clock
[[nodiscard]] std::string TimePattern(std::string_view strftimeFormat);

} // namespace quorvane
