#include "platform/posix/LanguageName.h"
#include "platform/posix/PosixLocaleItems.h"
#include "platform/posix/StrftimePattern.h"
#include "tests/support/ScopedEnvironment.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

struct Row {
    std::string_view what;
    std::string_view pattern;
};

TEST(DatePattern, SpeaksPatternLetters)
{
    const Row rows[] = {
        {"%m/%d/%y", "MM/dd/yy"},   {"%F", "yyyy-MM-dd"},          {"%e.%m.%Y", "d.MM.yyyy"},
        {"%-d.%-m.%Y", "d.M.yyyy"}, {"%Y. %m. %d.", "yyyy.MM.dd"}, {"%d %m %Y", "dd MM yyyy"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(DatePattern(row.what), row.pattern) << row.what;
    // What cannot be told in letters and one separator.
    for (const std::string_view format :
         {"%Y年%m月%d日", "%d/%m-%Y", "%Y%m%d", "%m/%d", "%d/%d/%Y", "den %d.%m.%Y", "%-", ""})
        EXPECT_EQ(DatePattern(format), "yyyy/MM/dd") << format;
}

TEST(TimePattern, SpeaksPatternLetters)
{
    const Row rows[] = {
        {"%T", "HH:mm:ss"},
        {"%r", "hh:mm:ss tt"},
        {"%l:%M:%S %P", "h:mm:ss tt"},
        {"%p %I:%M:%S", "tt hh:mm:ss"},
        {"%-H:%M:%S", "H:mm:ss"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(TimePattern(row.what), row.pattern) << row.what;
    for (const std::string_view format : {"%H時%M分%S秒", "%I:%M:%S", "%H:%M:%S %p", ""})
        EXPECT_EQ(TimePattern(format), "HH:mm:ss") << format;
}

TEST(LanguageName, IsTheEnglishOne)
{
    const Row rows[] = {
        {"ja_JP.UTF-8", "Japanese"}, {"ja", "Japanese"}, {"C.UTF-8", "English"},
        {"POSIX", "English"},        {"", "English"},    {"de@euro", "German"},
        {"ast_ES.UTF-8", "ast"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(LanguageName(row.what), row.pattern) << row.what;
}

TEST(LocaleItems, AreThoseOfTheEnvironmentAtTheMoment)
{
    const PosixLocaleItems items;
    {
        const ScopedEnvironment all("LC_ALL", "C");
        EXPECT_EQ(items.DecimalSign(), ".");
        EXPECT_EQ(items.ShortDateFormat(), "MM/dd/yy");
        EXPECT_EQ(items.TimeFormat(), "HH:mm:ss");
        EXPECT_EQ(items.DateSeparator(), "/");
        EXPECT_EQ(items.TimeSeparator(), ":");
        EXPECT_EQ(items.Century(), "0");
        EXPECT_EQ(items.HourLeadingZero(), "1");
        EXPECT_EQ(items.MonthLeadingZero(), "1");
        EXPECT_EQ(items.DayLeadingZero(), "1");
        EXPECT_EQ(items.MorningSign(), "AM");
        EXPECT_EQ(items.AfternoonSign(), "PM");
        EXPECT_EQ(items.SystemLanguageName(), "English");
    }
    const ScopedEnvironment all("LC_ALL", "ja_ZZ.not-installed");
    EXPECT_EQ(items.DecimalSign(), ".");
    EXPECT_EQ(items.SystemLanguageName(), "Japanese");
    const ScopedEnvironment none("LC_ALL", "");
    const ScopedEnvironment messages("LC_MESSAGES", std::nullopt);
    const ScopedEnvironment language("LANG", "fr_FR.UTF-8");
    EXPECT_EQ(items.SystemLanguageName(), "French");
}

} // namespace
} // namespace quorvane
