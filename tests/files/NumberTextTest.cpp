#include "files/NumberText.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace quorvane {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(NumberText, GeneralFormHasAtMostFifteenDigits)
{
    struct Row {
        std::string_view what;
        double value;
        std::string_view text;
    };
    const Row rows[] = {
        {"negative zero", -0.0, "0"},
        {"noise of the 17th digit disappears", 0.1 + 0.2, "0.3"},
        {"two thirds, up", -2e-7 / 3, "-6.66666666666667E-08"},
        {"the carry opens a new digit", 999.99999999999989, "1000"},
        // The shortest texts of these end in "5" at the 16th digit; the exact value decides.
        {"just below a tie", 1.291022617146975, "1.29102261714697"},   // 1.29102261714697497...
        {"just above a tie", 0.3873067851440925, "0.387306785144093"}, // 0.387306785144092502...
        {"an exact tie goes away from zero", 100000000000000.5, "100000000000001"},
        {"the smallest plain exponent", 0.00001, "0.00001"},
        {"below it", 0.000001, "1E-06"},
        {"rounding reaches the plain exponent", 9.9999999999999996e-6, "0.00001"},
        {"above it", 1e15, "1E+15"},
        {"rounding leaves the plain exponent", 999999999999999.9, "1E+15"},
        {"three digits of exponent", 1.7976931348623157e308, "1.79769313486232E+308"},
        {"infinite", -kInfinity, "0"},
        {"no number", kNoNumber, "0"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(GeneralText(row.value), row.text) << row.what;
}

TEST(NumberText, EachFormHasItsSigns)
{
    EXPECT_EQ(GeneralText(1.5e-9, ","), "1,5E-09");
    EXPECT_EQ(PatternText(3, {1, 1, 3}, ","), "3,0");
    EXPECT_EQ(PatternText(3, {2, 0, 0}, ","), "03");
    EXPECT_EQ(BlankedText(-0.0), " 0") << "a blank before what is not below zero";
    EXPECT_EQ(BlankedText(1e20), " 1E+20");
    EXPECT_EQ(BlankedText(-3), "-3");
}

constexpr NumberPattern kAverage = {1, 1, 4};     // "###0.0###"
constexpr NumberPattern kTenths = {1, 1, 1};      // "0.0"
constexpr NumberPattern kCents = {1, 2, 2};       // "0.00"
constexpr NumberPattern kThousandths = {3, 3, 3}; // "000.000"
constexpr NumberPattern kFiveDigits = {5, 0, 0};  // "00000"

TEST(NumberText, PatternsRoundHalfAwayFromZeroOnTheDecimalText)
{
    struct Row {
        std::string_view what;
        double value;
        NumberPattern pattern;
        std::string_view text;
    };
    const Row rows[] = {
        {"short decimals stay", 0.05, kAverage, "0.05"},
        {"a half in the last place, binary below it", 0.00015, kAverage, "0.0002"},
        {"a half that is exact", 1.25, kTenths, "1.3"},
        {"a half, binary below it", 1.005, kCents, "1.01"},
        {"a half below zero", -1.25, kTenths, "-1.3"},
        {"a sum's noise does not hide the half", 0.35 - 0.1, kTenths, "0.3"}, // 0.24999999999999997
        {"just below a half", 0.049999, kTenths, "0.0"},
        {"a half of the last place alone", 0.05, kTenths, "0.1"},
        {"no minus on nothing", -0.00004, kAverage, "0.0"},
        {"the carry opens a digit", 9.99995, kAverage, "10.0"},
        {"leading zeros", 4.0625, kThousandths, "004.063"},
        {"digits alone, rounded", 0.5, kFiveDigits, "00001"},
        {"never an exponent, large", 1e21, kAverage, "1000000000000000000000.0"},
        {"never an exponent, small", 1e-300, kAverage, "0.0"},
        {"fifteen digits, then zeros", 12345678901234567.0, kAverage, "12345678901234600.0"},
        {"no number", kNoNumber, kThousandths, "000.000"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(PatternText(row.value, row.pattern), row.text) << row.what;
}

TEST(NumberText, TextsOfFifteenDigitsComeBackUnchanged)
{
    // Whatever has at most 15 digits survives the way through a double; the texts are made without doubles.
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    for (int round = 0; round < 20000; ++round) {
        std::string text = std::to_string(random() % 99'999'999'999'999 + 1);
        text += static_cast<char>('1' + random() % 9); // no trailing zero behind the decimal sign
        const std::size_t decimals = random() % 5;
        if (text.size() <= decimals)
            text.insert(0, decimals + 1 - text.size(), '0');
        if (decimals > 0)
            text.insert(text.size() - decimals, 1, '.');
        EXPECT_EQ(GeneralText(LeadingNumber(text)), text);
    }
}

TEST(NumberText, LeadingNumberStopsAtTheFirstOtherCharacter)
{
    struct Row {
        std::string_view what;
        std::string_view text;
        double number;
        double decimal;
    };
    const Row rows[] = {
        {"leading blank and tab", " \t7", 7, 7},    {"behind a sign", "+2.5", 2.5, 2.5},
        {"below zero", "-01.250", -1.25, -1.25},    {"no digit before the point", "-.5", -0.5, -0.5},
        {"a second point ends", "1.2.3", 1.2, 1.2}, {"a comma ends", "1,5", 1, 1},
        {"an exponent", "25e-1x", 2.5, 25},         {"an exponent with a sign alone", "1E+", 1, 1},
        {"beyond a double", "-1E400", 0, -1},       {"too small for a double", "1E-400", 0, 1},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(LeadingNumber(row.text), row.number) << row.what;
        EXPECT_EQ(LeadingDecimal(row.text), row.decimal) << row.what;
    }
    for (const std::string_view text : {"", "  ", "+-5", "-", ".", "-infinity", "nan"})
        EXPECT_EQ(LeadingNumber(text), 0) << text;
}

TEST(NumberText, NumbersTooLargeForADoubleAreNoticed)
{
    const std::string large(400, '9');
    EXPECT_EQ(LeadingNumberInRange("1E308"), 1e308);
    EXPECT_EQ(LeadingNumberInRange("-1E309"), std::nullopt);
    EXPECT_EQ(LeadingNumberInRange(large), std::nullopt);
    EXPECT_EQ(LeadingNumberInRange("1E-400"), 0.0);
    EXPECT_EQ(LeadingNumberInRange("-0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(LeadingDecimal(large), 0);
}

TEST(NumberText, WholeNumbersRoundAHalfToTheEvenNeighbour)
{
    EXPECT_EQ(RoundToInt16(2.5), 2);
    EXPECT_EQ(RoundToInt16(3.5), 4);
    EXPECT_EQ(RoundToInt16(32767.4), 32767);
    EXPECT_EQ(RoundToInt16(32767.5), std::nullopt);
    EXPECT_EQ(RoundToInt16(-32768.5), -32768);
    EXPECT_EQ(RoundToInt16(-32768.6), std::nullopt);
    EXPECT_EQ(RoundToInt16(kNoNumber), std::nullopt);
}

} // namespace
} // namespace quorvane
