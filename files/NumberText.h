#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// Numbers to text and back, the same on every system and in every locale. All numbers are first written
/// with at most 15 significant digits; whatever is rounded, is rounded on that decimal text, half away from
/// zero. A value that is no number or is infinite is written as 0.

/// General form: the shortest decimal text of at most 15 significant digits, "E" form for exponents below -5
/// or above 14 ("1E-06"). Never "-0".
[[nodiscard]] std::string GeneralText(double value, std::string_view decimalSign = ".");

/// The form of the settings file: general form with one leading blank for a value not below zero.
[[nodiscard]] std::string BlankedText(double value);

/// A number pattern: "000.000" is {3, 3, 3}, "###0.0###" is {1, 1, 4}, "00000" is {5, 0, 0}.
struct NumberPattern {
    int integerDigits = 1; ///< at least so many before the decimal sign
    int minDecimals = 0;   ///< at least so many behind it
    int maxDecimals = 0;   ///< at most so many
};

/// The value in a pattern, without thousands separators, never in "E" form and never "-0".
[[nodiscard]] std::string PatternText(double value, NumberPattern pattern,
                                      std::string_view decimalSign = ".");

/// The same two, appended to `out`: for files of many rows.
void AppendGeneral(std::string& out, double value, std::string_view decimalSign);
void AppendPattern(std::string& out, double value, NumberPattern pattern, std::string_view decimalSign);

/// The number a text begins with: leading blanks skipped, sign, digits, one ".", exponent ("E" or "e").
/// Reading stops at the first other character. A text without a number gives 0, and so does a number
/// beyond the range of a double.
[[nodiscard]] double LeadingNumber(std::string_view text);

/// The same for files whose faults are noticed.
/// @return nothing when the number is too large for a double; one that is too small for it gives 0
[[nodiscard]] std::optional<double> LeadingNumberInRange(std::string_view text);

/// `LeadingNumber` without an exponent, as the fields of the instrument's lines are read: "1E5" gives 1.
[[nodiscard]] double LeadingDecimal(std::string_view text);

/// The number an operator typed: `LeadingNumber` with the decimal sign of the user's system; "." is taken as
/// well.
[[nodiscard]] double TypedNumber(std::string_view text, std::string_view decimalSign);

/// Rounded to the nearest whole number, a half to the even neighbour.
/// @return nothing when the result does not fit
[[nodiscard]] std::optional<std::int16_t> RoundToInt16(double value);

} // namespace quorvane
