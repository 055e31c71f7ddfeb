#include "app/CommandOptions.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using Arguments = std::vector<std::string>;

constexpr CommandOption kKnown[] = {
    {"--speed", "F", "how fast"},      {"--samples", "N", "how many"},
    {"--at-end", "WHAT", "what then"}, {"--fault", "NAME", "what fails", true},
    {"--quiet", "", "says little"},
};

TEST(CommandOptions, ReadsBothFormsAndRepeatedOptionsInOrder)
{
    CommandOptions options(kKnown);
    const Arguments arguments = {"--fault", "split:8", "--speed=50",  "--quiet",   "--fault=--late",
                                 "--fault", "a=b",     "--fault=c=d", "--samples", "-3"};
    ASSERT_FALSE(options.Read(arguments));
    EXPECT_EQ(options.Text("--speed"), "50");
    EXPECT_EQ(options.Text("--samples"), "-3");
    EXPECT_TRUE(options.Has("--quiet"));
    EXPECT_EQ(options.Texts("--fault"), (Arguments{"split:8", "--late", "a=b", "c=d"}));
    EXPECT_FALSE(options.Has("--at-end"));
    EXPECT_EQ(options.Text("--at-end", "repeat"), "repeat");
}

TEST(CommandOptions, TakesAnArgumentWithoutANameWhereverItStands)
{
    constexpr CommandOption kWithValue[] = {{"--port", "P", "where"}, {"VALUE", "", "how much"}};
    for (const Arguments& arguments : {Arguments{"0.5", "--port", "a"}, Arguments{"--port", "a", "0.5"}}) {
        CommandOptions options(kWithValue);
        EXPECT_FALSE(options.Read(arguments));
        EXPECT_EQ(options.Text("VALUE"), "0.5");
        EXPECT_EQ(options.Text("--port"), "a");
    }
    CommandOptions options(kWithValue);
    EXPECT_EQ(options.Read(Arguments{"0.5", "0.6"}).value_or(UsageFault{}).text,
              "unexpected argument \"0.6\"");
}

TEST(CommandOptions, SaysInOneLineWhatIsWrong)
{
    struct Row {
        std::string_view what;
        Arguments arguments;
        std::string_view fault;
    };
    const Row rows[] = {
        {"unknown option with value", {"--sped=2"}, "unknown option \"--sped\""},
        {"next option instead of the value", {"--speed", "--quiet"}, "--speed lacks its value: --speed F"},
        {"empty value", {"--speed="}, "--speed lacks its value: --speed F"},
        {"value where none belongs", {"--quiet=1"}, "--quiet takes no value"},
        {"single option twice", {"--speed", "1", "--speed=2"}, "--speed is given twice"},
        {"stray argument", {"--quiet", "file.csv"}, "unexpected argument \"file.csv\""},
        {"line ends in an argument stay out of the line", {"a\r\nb"}, "unexpected argument \"a??b\""},
    };
    for (const Row& row : rows) {
        CommandOptions options(kKnown);
        EXPECT_EQ(options.Read(row.arguments).value_or(UsageFault{}).text, row.fault) << row.what;
    }
}

TEST(CommandOptions, NumbersAreTheWholeTextAndWithinTheirRange)
{
    const auto whole = [](const std::string& text, std::int64_t value) {
        CommandOptions options(kKnown);
        EXPECT_FALSE(options.Read(Arguments{"--samples", text}));
        const auto fault = options.ReadWhole("--samples", 1, 65500, value);
        return fault ? fault->text : std::to_string(value);
    };
    for (const std::string text : {"1", "65500"})
        EXPECT_EQ(whole(text, 7), text);
    for (const std::string text : {"0", "65501", "99999999999999999999", "1.0", "+12", " 12"})
        EXPECT_EQ(whole(text, 7), "--samples takes a whole number from 1 to 65500, not \"" + text + '"');

    const auto decimal = [](const std::string& text, double value) {
        CommandOptions options(kKnown);
        EXPECT_FALSE(options.Read(Arguments{"--speed", text}));
        const auto fault = options.ReadDecimal("--speed", 0.1, 1000, value);
        return fault ? fault->text : std::to_string(value);
    };
    EXPECT_EQ(decimal("0.1", 7), "0.100000");
    EXPECT_EQ(decimal("1000", 7), "1000.000000");
    for (const std::string text : {"0.0999", "1,5", "1e2", "nan"})
        EXPECT_EQ(decimal(text, 7), "--speed takes a number from 0.1 to 1000, not \"" + text + '"');
}

TEST(CommandOptions, ChoiceIsOneOfItsWords)
{
    const std::string_view words[] = {"repeat", "silence", "loop"};
    std::size_t choice = 1;
    const auto read = [&](const Arguments& arguments) {
        CommandOptions options(kKnown);
        EXPECT_FALSE(options.Read(arguments));
        double decimal = 7;
        EXPECT_FALSE(options.ReadDecimal("--speed", 1, 5, decimal));
        EXPECT_EQ(decimal, 7) << "what is not given keeps its value";
        return options.ReadChoice("--at-end", words, choice).value_or(UsageFault{}).text;
    };
    EXPECT_EQ(read({}), "");
    EXPECT_EQ(choice, 1U);
    EXPECT_EQ(read({"--at-end", "loop"}), "");
    EXPECT_EQ(choice, 2U);
    EXPECT_EQ(read({"--at-end", "Silence"}), "--at-end takes one of repeat, silence, loop, not \"Silence\"");
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
