#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// The fields of one data line.
struct Reading {
    std::string time; ///< time of the reading by the instrument's clock, as it was sent
    double count = 0; ///< relative concentration, counts per minute
    double conc = 0;  ///< mass concentration, mg/m3
    std::string
        extra; ///< the fourth field's number as text with "."; empty when the line has no fourth field
};

/// Takes a data line apart. Fields are separated by ";"; numbers are read leniently, and what is not a number
/// is 0. A negative count or concentration is 0.
/// @param line  as received, its CR LF included or not
[[nodiscard]] Reading ParseReplyLine(std::string_view line);

} // namespace quorvane
