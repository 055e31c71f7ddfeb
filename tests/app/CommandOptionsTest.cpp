#include "app/CommandOptions.h"

#include <array>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

constexpr CommandOption kKnown[] = {
    {"--speed", "F", "how fast"},      {"--samples", "N", "how many"},
    {"--at-end", "WHAT", "what then"}, {"--fault", "NAME", "what fails", true},
    {"--quiet", "", "says little"},
};

using Arguments = std::vector<std::string>;

TEST(CommandOptions, ReadsBothFormsAndRepeatedOptionsInOrder)
{
    CommandOptions options(kKnown);
    const Arguments arguments = {"--fault",      "split:8",   "--speed=50", "--quiet",
                                 "--fault=late", "--samples", "-3"};
    ASSERT_FALSE(options.Read(arguments));
    EXPECT_EQ(options.Text("--speed"), "50");
    EXPECT_EQ(options.Text("--samples"), "-3");
    EXPECT_TRUE(options.Has("--quiet"));
    EXPECT_EQ(options.Texts("--fault"), (Arguments{"split:8", "late"}));
    EXPECT_FALSE(options.Has("--at-end"));
    EXPECT_EQ(options.Text("--at-end", "repeat"), "repeat");
    EXPECT_TRUE(options.Texts("--at-end").empty());
}

TEST(CommandOptions, ValueMayHoldEqualsSignsAndLeadingDashes)
{
    CommandOptions options(kKnown);
    ASSERT_FALSE(options.Read(Arguments{"--fault=a=b", "--fault", "c=d", "--fault=--e"}));
    EXPECT_EQ(options.Texts("--fault"), (Arguments{"a=b", "c=d", "--e"}));
}

TEST(CommandOptions, SaysInOneLineWhatIsWrong)
{
    const struct {
        std::string_view what;
        Arguments arguments;
        std::string_view fault;
    } rows[] = {
        {"unknown option", {"--sped", "2"}, "unknown option \"--sped\""},
        {"unknown option with value", {"--sped=2"}, "unknown option \"--sped\""},
        {"single dash", {"-q"}, "unknown option \"-q\""},
        {"value missing at the end", {"--quiet", "--speed"}, "--speed lacks its value: --speed F"},
        {"next option instead of the value", {"--speed", "--quiet"}, "--speed lacks its value: --speed F"},
        {"empty value", {"--speed="}, "--speed lacks its value: --speed F"},
        {"empty value as an argument", {"--speed", ""}, "--speed lacks its value: --speed F"},
        {"value where none belongs", {"--quiet=1"}, "--quiet takes no value"},
        {"single option twice", {"--speed", "1", "--speed=2"}, "--speed is given twice"},
        {"flag twice", {"--quiet", "--quiet"}, "--quiet is given twice"},
        {"stray argument", {"--quiet", "file.csv"}, "unexpected argument \"file.csv\""},
        {"empty argument", {""}, "unexpected argument \"\""},
        {"dashes alone", {"--"}, "unexpected argument \"--\""},
        {"line ends in an argument stay out of the line", {"a\r\nb"}, "unexpected argument \"a??b\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        CommandOptions options(kKnown);
        const auto fault = options.Read(row.arguments);
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->text, row.fault);
    }
}

TEST(CommandOptions, NumbersAreTheWholeTextAndWithinTheirRange)
{
    constexpr std::string_view kWhole = "--samples takes a whole number from 1 to 65500, not ";
    constexpr std::string_view kDecimal = "--speed takes a number from 0.1 to 1000, not ";
    const struct {
        std::string_view what;
        std::string option;
        std::string text;
        std::optional<double> value;
    } rows[] = {
        {"least", "--samples", "1", 1},
        {"most", "--samples", "65500", 65500},
        {"below", "--samples", "0", {}},
        {"above", "--samples", "65501", {}},
        {"beyond 64 bits", "--samples", "99999999999999999999", {}},
        {"decimals", "--samples", "1.0", {}},
        {"trailing text", "--samples", "12s", {}},
        {"leading blank", "--samples", " 12", {}},
        {"plus sign", "--samples", "+12", {}},
        {"least", "--speed", "0.1", 0.1},
        {"most", "--speed", "1000", 1000},
        {"without leading zero", "--speed", ".5", 0.5},
        {"below", "--speed", "0.0999", {}},
        {"decimal comma", "--speed", "1,5", {}},
        {"exponent", "--speed", "1e2", {}},
        {"not a number", "--speed", "nan", {}},
        {"infinite", "--speed", "inf", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.option + " " + row.text + ": " + std::string(row.what));
        CommandOptions options(kKnown);
        ASSERT_FALSE(options.Read(Arguments{row.option, row.text}));
        const bool whole = row.option == "--samples";
        std::int64_t wholeValue = -7;
        double decimalValue = -7;
        const auto fault = whole ? options.ReadWhole("--samples", 1, 65500, wholeValue)
                                 : options.ReadDecimal("--speed", 0.1, 1000, decimalValue);
        EXPECT_EQ(whole ? static_cast<double>(wholeValue) : decimalValue, row.value.value_or(-7));
        const std::string expected =
            row.value ? "" : std::string(whole ? kWhole : kDecimal) + '"' + row.text + '"';
        EXPECT_EQ(fault.value_or(UsageFault{}).text, expected);
    }
}

TEST(CommandOptions, WhatIsNotGivenKeepsItsValue)
{
    CommandOptions options(kKnown);
    ASSERT_FALSE(options.Read(Arguments{}));
    std::int64_t whole = 5;
    double decimal = 2.5;
    std::size_t choice = 1;
    const std::string_view words[] = {"a", "b"};
    EXPECT_FALSE(options.ReadWhole("--samples", 10, 20, whole));
    EXPECT_FALSE(options.ReadDecimal("--speed", 10, 20, decimal));
    EXPECT_FALSE(options.ReadChoice("--at-end", words, choice));
    EXPECT_EQ(whole, 5);
    EXPECT_EQ(decimal, 2.5);
    EXPECT_EQ(choice, 1U);
}

TEST(CommandOptions, ChoiceIsOneOfItsWords)
{
    const std::string_view words[] = {"repeat", "silence", "loop"};
    std::size_t choice = 0;
    CommandOptions good(kKnown);
    ASSERT_FALSE(good.Read(Arguments{"--at-end", "loop"}));
    EXPECT_FALSE(good.ReadChoice("--at-end", words, choice));
    EXPECT_EQ(choice, 2U);
    CommandOptions bad(kKnown);
    ASSERT_FALSE(bad.Read(Arguments{"--at-end", "Loop"}));
    const auto fault = bad.ReadChoice("--at-end", words, choice);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->text, "--at-end takes one of repeat, silence, loop, not \"Loop\"");
    EXPECT_EQ(choice, 2U);
}

TEST(CommandOptions, HelpStandsInColumns)
{
    const CommandOption known[] = {{"--port", "DEVICE", "the line"}, {"--quiet", "", "says little"}};
    EXPECT_EQ(CommandOptions(known).Help(), "  --port DEVICE  the line\n"
                                            "  --quiet        says little\n");
}

} // namespace
} // namespace quorvane
