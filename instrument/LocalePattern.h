#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane {

/// A field of a date or time pattern: one letter, as often as it stands there in a row.
struct PatternField {
    std::size_t begin = std::string_view::npos;
    std::size_t length = 0; ///< 0: the pattern has no such field
};

/// The first field of any of `letters`. Words between apostrophes hold no fields.
[[nodiscard]] PatternField FindField(std::string_view pattern, std::string_view letters);

/// The text between the first field of any of `letters` and the next field, whichever that is, without
/// apostrophes; empty when either is missing.
[[nodiscard]] std::string SeparatorAfter(std::string_view pattern, std::string_view letters);

/// "1" when the first field of any of `letters` is written with leading zeros, else "0".
[[nodiscard]] std::string LeadingZeroItem(std::string_view pattern, std::string_view letters);

/// "1" when the year of a date pattern is written with its century, else "0".
[[nodiscard]] std::string CenturyItem(std::string_view datePattern);

} // namespace quorvane
