#include "platform/posix/LanguageName.h"
#include "platform/posix/PosixLocaleItems.h"
#include "platform/posix/StrftimePattern.h"
#include "tests/platform/ScopedEnvironment.h"

#include <gtest/gtest.h>

namespace quorvane::test {
namespace {

struct PatternRow {
    std::string_view format;
    std::string_view pattern;
};

TEST(DatePattern, SpeaksPatternLetters)
{
    const PatternRow rows[] = {
        {"%m/%d/%y", "MM/dd/yy"},
        {"%m/%d/%Y", "MM/dd/yyyy"},
        {"%d.%m.%Y", "dd.MM.yyyy"},
        {"%Y-%m-%d", "yyyy-MM-dd"},
        {"%F", "yyyy-MM-dd"},
        {"%D", "MM/dd/yy"},
        {"%e.%m.%Y", "d.MM.yyyy"},
        {"%-d.%-m.%Y", "d.M.yyyy"},
        {"%d. %m. %Y", "dd.MM.yyyy"},
        {"%Y. %m. %d.", "yyyy.MM.dd"},
        {"%d %m %Y", "dd MM yyyy"},
        {"%Y/%d/%m", "yyyy/dd/MM"},
        // what cannot be told in letters and one separator
        {"%Y年%m月%d日", "yyyy/MM/dd"},
        {"%d-%b-%Y", "yyyy/MM/dd"},
        {"%d/%m-%Y", "yyyy/MM/dd"},
        {"%Y%m%d", "yyyy/MM/dd"},
        {"%m/%d", "yyyy/MM/dd"},
        {"%d/%d/%Y", "yyyy/MM/dd"},
        {"%a %d/%m/%Y", "yyyy/MM/dd"},
        {"%Oe/%m/%Y", "yyyy/MM/dd"},
        {"den %d.%m.%Y", "yyyy/MM/dd"},
        {"%", "yyyy/MM/dd"},
        {"%-", "yyyy/MM/dd"},
        {"", "yyyy/MM/dd"},
    };
    for (const PatternRow& row : rows)
        EXPECT_EQ(DatePattern(row.format), row.pattern) << row.format;
}

TEST(TimePattern, SpeaksPatternLetters)
{
    const PatternRow rows[] = {
        {"%H:%M:%S", "HH:mm:ss"},
        {"%T", "HH:mm:ss"},
        {"%R", "HH:mm"},
        {"%r", "hh:mm:ss tt"},
        {"%I:%M:%S %p", "hh:mm:ss tt"},
        {"%l:%M:%S %P", "h:mm:ss tt"},
        {"%p %I:%M:%S", "tt hh:mm:ss"},
        {"%H.%M.%S", "HH.mm.ss"},
        {"%k:%M:%S", "H:mm:ss"},
        {"%-H:%M:%S", "H:mm:ss"},
        {"%H時%M分%S秒", "HH:mm:ss"},
        {"%H:%M:%S %Z", "HH:mm:ss"},
        {"%I:%M:%S", "HH:mm:ss"},
        {"%H:%M:%S %p", "HH:mm:ss"},
        {"%M:%S", "HH:mm:ss"},
        {"", "HH:mm:ss"},
    };
    for (const PatternRow& row : rows)
        EXPECT_EQ(TimePattern(row.format), row.pattern) << row.format;
}

TEST(LanguageName, IsTheEnglishOne)
{
    const PatternRow rows[] = {
        {"ja_JP.UTF-8", "Japanese"}, {"ja", "Japanese"},    {"en_US.UTF-8", "English"},
        {"C.UTF-8", "English"},      {"POSIX", "English"},  {"", "English"},
        {"zh_TW", "Chinese"},        {"de@euro", "German"}, {"ast_ES.UTF-8", "ast"},
    };
    for (const PatternRow& row : rows)
        EXPECT_EQ(LanguageName(row.format), row.pattern) << row.format;
}

TEST(LocaleItems, AreThoseOfTheEnvironmentAtTheMoment)
{
    const PosixLocaleItems items;
    {
        const ScopedEnvironment all("LC_ALL", "C");
        EXPECT_EQ(items.DecimalSign(), ".");
        EXPECT_EQ(items.ShortDateFormat(), "MM/dd/yy");
        EXPECT_EQ(items.TimeFormat(), "HH:mm:ss");
        EXPECT_EQ(items.MorningSign(), "AM");
        EXPECT_EQ(items.AfternoonSign(), "PM");
        EXPECT_EQ(items.SystemLanguageName(), "English");
    }
    const ScopedEnvironment all("LC_ALL", "ja_ZZ.not-installed");
    EXPECT_EQ(items.DecimalSign(), ".");
    EXPECT_EQ(items.ShortDateFormat(), "MM/dd/yy");
    EXPECT_EQ(items.SystemLanguageName(), "Japanese");
    const ScopedEnvironment none("LC_ALL", "");
    const ScopedEnvironment messages("LC_MESSAGES", std::nullopt);
    const ScopedEnvironment language("LANG", "fr_FR.UTF-8");
    EXPECT_EQ(items.SystemLanguageName(), "French");
}

} // namespace
} // namespace quorvane::test
