#include "files/NumberText.h"
#include "measure/ReplyLine.h"
#include "tests/fuzz/Hold.h"
#include "tests/fuzz/Targets.h"

#include <cmath>

namespace quorvane {

void TryReplyLine(std::string_view input)
{
    const Reading reading = ParseReplyLine(input);
    for (const double value : {reading.count, reading.conc})
        Hold(std::isfinite(value) && value >= 0, "count and concentration are numbers, not below zero");
    Hold(input.starts_with(reading.time), "the time is the line's beginning");
    Hold(reading.time.find(';') == std::string::npos, "the time ends at the first separator");
    if (input.find(';') == std::string_view::npos)
        Hold(reading.time.empty() && reading.count == 0 && reading.conc == 0 && reading.extra.empty(),
             "noise is no reading");
    Hold(reading.extra == "" || reading.extra == GeneralText(LeadingNumber(reading.extra)),
         "the factor is written as numbers are");

    // A line made of what was read says the same. The form of the lines has no exponents and 15 digits.
    const NumberPattern plain{.integerDigits = 1, .minDecimals = 0, .maxDecimals = 400};
    const auto lineOf = [&](const Reading& of) {
        return of.time + ";" + PatternText(of.count, plain) + ";" + PatternText(of.conc, plain) + ";" +
               PatternText(LeadingNumber(of.extra), plain);
    };
    const std::string written = lineOf(reading);
    // A line of 25 characters has no fourth field, whatever stands in it.
    const Reading again = ParseReplyLine(written.size() == 23 ? written : written + "\r\n");
    Hold(again.time == reading.time && lineOf(again) == written, "what was read and written reads the same");
}

} // namespace quorvane
