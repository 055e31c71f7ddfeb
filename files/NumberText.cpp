#include "files/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace quorvane {
namespace {

constexpr int kSignificantDigits = 15;
constexpr double kWholeLimit = 1e15; // below it every whole number has at most 15 digits
constexpr int kLowestPlainExponent = -5;
constexpr int kHighestPlainExponent = 14;

/// The value 0.d1d2d3... * 10^point. No digits at all stand for 0; the last digit is never "0".
struct Decimal {
    char digits[48];
    int count = 0;
    int point = 0;
    bool negative = false;
};

void StripZeros(Decimal& decimal)
{
    while (decimal.count > 0 && decimal.digits[decimal.count - 1] == '0')
        --decimal.count;
}

/// Keeps `keep` digits, rounded half away from zero.
void RoundDigits(Decimal& decimal, int keep)
{
    if (keep >= decimal.count)
        return;
    if (keep < 0) {
        decimal.count = 0;
        return;
    }
    const bool up = decimal.digits[keep] >= '5';
    decimal.count = keep;
    if (up) {
        while (decimal.count > 0 && decimal.digits[decimal.count - 1] == '9')
            --decimal.count;
        if (decimal.count == 0) { // 9.99 became 10.0
            decimal.digits[decimal.count++] = '1';
            ++decimal.point;
        } else {
            ++decimal.digits[decimal.count - 1];
        }
    }
    StripZeros(decimal);
}

/// Takes the digits out of "d.dddde+XX".
void ReadScientific(Decimal& decimal, const char* text, const char* end)
{
    const char* const mark = std::find(text, end, 'e');
    decimal.digits[0] = *text;
    decimal.count = 1;
    if (mark - text > 2) {
        std::copy(text + 2, mark, decimal.digits + 1);
        decimal.count += static_cast<int>(mark - text) - 2;
    }
    int exponent = 0;
    std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end, exponent);
    decimal.point = exponent + 1;
}

/// The at most 15 digits that every form is made of.
void Decompose(double value, Decimal& decimal)
{
    if (!std::isfinite(value) || value == 0)
        return;
    decimal.negative = value < 0;
    value = std::fabs(value);
    if (value < kWholeLimit && value == std::trunc(value)) {
        char* const end =
            std::to_chars(decimal.digits, std::end(decimal.digits), static_cast<std::int64_t>(value)).ptr;
        decimal.count = decimal.point = static_cast<int>(end - decimal.digits);
        StripZeros(decimal);
        return;
    }
    // Any text of 15 digits is the 15-digit text of the double nearest to it, so a shortest text of at most
    // 15 digits is the one wanted. A longer one lies on the same side of every 15-digit tie as the value
    // itself, or a tie would have been the shorter or the nearer text; only when it is a tie, the side is not
    // known and the value is asked for more digits than it takes to tell.
    char text[64];
    const char* end =
        std::to_chars(std::begin(text), std::end(text), value, std::chars_format::scientific).ptr;
    ReadScientific(decimal, text, end);
    if (decimal.count == kSignificantDigits + 1 && decimal.digits[kSignificantDigits] == '5') {
        end = std::to_chars(std::begin(text), std::end(text), value, std::chars_format::scientific, 40).ptr;
        ReadScientific(decimal, text, end);
    }
    RoundDigits(decimal, kSignificantDigits);
}

/// Digits `first` to `last` (exclusive, counted from the first digit), zeros where there are none.
void AppendDigits(std::string& out, const Decimal& decimal, int first, int last)
{
    const int leadingZeros = std::clamp(-first, 0, std::max(last - first, 0));
    out.append(static_cast<std::size_t>(leadingZeros), '0');
    first += leadingZeros;
    const int digitsEnd = std::min(last, decimal.count);
    if (first < digitsEnd) {
        out.append(decimal.digits + first, static_cast<std::size_t>(digitsEnd - first));
        first = digitsEnd;
    }
    if (first < last)
        out.append(static_cast<std::size_t>(last - first), '0');
}

void AppendPlain(std::string& out, const Decimal& decimal, NumberPattern pattern,
                 std::string_view decimalSign)
{
    if (decimal.negative && decimal.count > 0)
        out.push_back('-');
    const int point = decimal.count > 0 ? decimal.point : 0;
    const int integerDigits = std::max(point, pattern.integerDigits);
    AppendDigits(out, decimal, point - integerDigits, point);
    const int decimals = std::max(decimal.count - point, pattern.minDecimals);
    if (decimals > 0) {
        out.append(decimalSign);
        AppendDigits(out, decimal, point, point + decimals);
    }
}

void AppendScientific(std::string& out, const Decimal& decimal, std::string_view decimalSign)
{
    if (decimal.negative)
        out.push_back('-');
    out.push_back(decimal.digits[0]);
    if (decimal.count > 1) {
        out.append(decimalSign);
        AppendDigits(out, decimal, 1, decimal.count);
    }
    const int exponent = decimal.point - 1;
    out.append(exponent < 0 ? "E-" : "E+");
    const int magnitude = std::abs(exponent);
    if (magnitude < 10)
        out.push_back('0');
    out.append(std::to_string(magnitude));
}

bool IsDigitOrPoint(char character)
{
    return (character >= '0' && character <= '9') || character == '.';
}

/// Whether a number that no double can hold is too small for it and not too large.
bool IsTiny(std::string_view number)
{
    const std::size_t exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos)
        return number[exponent + 1] == '-';
    return number[number.find_first_not_of("+-0")] == '.';
}

struct Parsed {
    double value = 0;
    bool tooLarge = false;
};

Parsed ParseLeading(std::string_view text, std::chars_format format)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const bool plus = !text.empty() && text[0] == '+'; // from_chars knows only "-"
    if (plus)
        text.remove_prefix(1);
    const std::size_t first = !plus && !text.empty() && text[0] == '-' ? 1 : 0;
    if (first >= text.size() || !IsDigitOrPoint(text[first])) // nor shall it take "inf" and "nan"
        return {};
    Parsed parsed;
    const char* const begin = text.data();
    const auto [end, error] = std::from_chars(begin, begin + text.size(), parsed.value, format);
    if (error == std::errc{})
        return parsed;
    const std::string_view number(begin, static_cast<std::size_t>(end - begin));
    return {.value = 0, .tooLarge = error == std::errc::result_out_of_range && !IsTiny(number)};
}

} // namespace

void AppendGeneral(std::string& out, double value, std::string_view decimalSign)
{
    Decimal decimal;
    Decompose(value, decimal);
    const int exponent = decimal.point - 1;
    if (exponent < kLowestPlainExponent || exponent > kHighestPlainExponent)
        AppendScientific(out, decimal, decimalSign);
    else
        AppendPlain(out, decimal, {}, decimalSign);
}

void AppendPattern(std::string& out, double value, NumberPattern pattern, std::string_view decimalSign)
{
    Decimal decimal;
    Decompose(value, decimal);
    RoundDigits(decimal, decimal.point + pattern.maxDecimals);
    AppendPlain(out, decimal, pattern, decimalSign);
}

std::string GeneralText(double value, std::string_view decimalSign)
{
    std::string text;
    AppendGeneral(text, value, decimalSign);
    return text;
}

std::string BlankedText(double value)
{
    std::string text = GeneralText(value);
    if (text[0] != '-')
        text.insert(0, 1, ' ');
    return text;
}

std::string PatternText(double value, NumberPattern pattern, std::string_view decimalSign)
{
    std::string text;
    AppendPattern(text, value, pattern, decimalSign);
    return text;
}

double LeadingNumber(std::string_view text)
{
    return ParseLeading(text, std::chars_format::general).value;
}

std::optional<double> LeadingNumberInRange(std::string_view text)
{
    const Parsed parsed = ParseLeading(text, std::chars_format::general);
    if (parsed.tooLarge)
        return std::nullopt;
    return parsed.value;
}

double LeadingDecimal(std::string_view text)
{
    return ParseLeading(text, std::chars_format::fixed).value;
}

double TypedNumber(std::string_view text, std::string_view decimalSign)
{
    const std::size_t sign = decimalSign.empty() ? std::string_view::npos : text.find(decimalSign);
    std::string number(text.substr(0, sign));
    if (sign != std::string_view::npos)
        number.append(1, '.').append(text.substr(sign + decimalSign.size()));
    return LeadingNumber(number);
}

std::optional<std::int16_t> RoundToInt16(double value)
{
    const double rounded = std::nearbyint(value);
    using Limits = std::numeric_limits<std::int16_t>;
    if (!(rounded >= Limits::min() && rounded <= Limits::max()))
        return std::nullopt;
    return static_cast<std::int16_t>(rounded);
}

} // namespace quorvane
