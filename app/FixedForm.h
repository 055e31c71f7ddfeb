#pragma once

#include "app/LocalClock.h"

#include <optional>
#include <string_view>

namespace quorvane {

// Texts whose every character has its place. A form shows them: "hh:mm" is two digits, a colon, two digits.

/// @return whether `text` has a digit for each letter of `form`, every other character of it as it stands,
///         and nothing more
[[nodiscard]] bool HasForm(std::string_view text, std::string_view form);

/// Reads an existing date and time of day of the years 1970 to 9999. Four digits of the year and two each of
/// month, day, hour, minute and second stand in that order, with one character of `form` between them:
/// "YYYY-MM-DD hh:mm:ss".
[[nodiscard]] std::optional<LocalMoment> MomentInForm(std::string_view text, std::string_view form);

} // namespace quorvane
