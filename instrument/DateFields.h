#pragma once

#include "app/ApplicationState.h"

#include <cstdint>
#include <string_view>

namespace quorvane {

/// One field of a date text.
struct DateField {
    std::int16_t position = 0; ///< characters from 1; 0 when the text has no such field
    std::string_view text;     ///< up to the next separator or the end, blanks and all
};

struct DateFields {
    DateField year;
    DateField month;
    DateField day;
};

/// `DateOrder` of a short date pattern: the field that comes first decides the first one, the pattern's order
/// the two others. A field that the pattern lacks counts as coming last.
[[nodiscard]] std::int16_t DateOrderOf(std::string_view shortDateFormat);

/// Where `DateOrder` and `DateSeparator` put the fields of a date text: the first at position 1, whatever
/// stands there, each other one character after the next separator. Where there is no separator the next
/// field begins at the next number instead ("2024年3月5日"); without one it is missing, and so are those
/// behind it.
[[nodiscard]] DateFields CutDate(std::string_view text, const LocaleDescription& description);

} // namespace quorvane
