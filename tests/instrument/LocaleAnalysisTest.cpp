#include "instrument/LocaleAnalysis.h"

#include "instrument/DateFields.h"
#include "tests/support/FixedLocale.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr LocalMoment kSpring = std::chrono::local_days{2024y / 3 / 5};
constexpr LocalMoment kWinter = std::chrono::local_days{2009y / 12 / 31};

TEST(LocaleAnalysis, KnowsTheOrderAndWhereTheFieldsOfTodayStand)
{
    struct Row {
        std::string_view what;
        std::string format, separator;
        LocalMoment today;
        int order, year, month, day;
    };
    const Row rows[] = {
        {"year month day", "yyyy/MM/dd", "/", kSpring, 1, 1, 6, 9},
        {"year day month", "yy.dd.MM", ".", kSpring, 2, 1, 7, 4},
        {"month day year", "MM-dd-yyyy", "-", kSpring, 3, 7, 1, 4},
        {"month year day", "MM/yyyy/dd", "/", kSpring, 4, 4, 1, 9},
        {"day month year", "dd.MM.yyyy", ".", kSpring, 5, 7, 4, 1},
        {"day year month", "dd/yyyy/MM", "/", kSpring, 6, 4, 9, 1},
        {"today's widths, not the format's: 5.3.2024", "d.M.yyyy", ".", kSpring, 5, 5, 3, 1},
        {"today's widths, not the format's: 31.12.2009", "d.M.yyyy", ".", kWinter, 5, 7, 4, 1},
        {"one character after the first of the separator", "d. M. yyyy", ".", kSpring, 5, 6, 3, 1},
        {"characters, not bytes: 2024年3月5日", "yyyy'年'M'月'd'日'", "年", kSpring, 1, 1, 6, 8},
        {"words before the first field: 5 3 2024", "'dd' d/M/yyyy", "/", kSpring, 5, 8, 6, 1},
        {"no separator", "yyyyMMdd", "", kSpring, 1, 1, 0, 0},
        {"no field", "'yMd'", "", kSpring, 1, 1, 0, 0},
        {"no format", "", "", kSpring, 1, 1, 0, 0},
    };
    for (const Row& row : rows) {
        FixedLocale locale;
        locale.shortDateFormat = row.format;
        LocaleDescription description;
        AnalyseLocale(description, locale, row.today);
        EXPECT_EQ(description.ShortDateFormat, row.format) << row.what;
        EXPECT_EQ(description.DateSeparator, row.separator) << row.what;
        EXPECT_EQ(description.DateOrder, row.order) << row.what;
        EXPECT_EQ(description.YearPos, row.year) << row.what;
        EXPECT_EQ(description.MonthPos, row.month) << row.what;
        EXPECT_EQ(description.DayPos, row.day) << row.what;
    }
}

TEST(LocaleAnalysis, TakesTheItemsAsTheyAreNow)
{
    FixedLocale locale;
    LocaleDescription description;
    AnalyseLocale(description, locale, kSpring);
    EXPECT_EQ(description.YearDigits, 4);
    EXPECT_EQ(description.MonthLeadingZero, 1);
    EXPECT_EQ(description.DayLeadingZero, 1);
    EXPECT_EQ(description.HourLeadingZero, 1);

    locale.shortDateFormat = "dd.M.yy";
    locale.timeFormat = "tt h' h 'mm";
    AnalyseLocale(description, locale, kSpring);
    EXPECT_EQ(description.YearDigits, 2);
    EXPECT_EQ(description.MonthLeadingZero, 0);
    EXPECT_EQ(description.DayLeadingZero, 1);
    EXPECT_EQ(description.HourLeadingZero, 0);
    EXPECT_EQ(description.TimeFormat, "tt h' h 'mm");
    EXPECT_EQ(description.TimeSeparator, " h ");
}

TEST(CutDate, GoesOnAtTheNextNumberWhereASeparatorIsMissing)
{
    LocaleDescription description;
    description.DateSeparator = "/";
    description.DateOrder = 3;
    const DateFields fields = CutDate("3 5/2024", description); // the "/" ends the month
    EXPECT_EQ(fields.month.text, "3 5");
    EXPECT_EQ(fields.day.text, "2024");
    EXPECT_EQ(fields.year.position, 0);
    EXPECT_EQ(CutDate("3/5 2024", description).year.position, 5);

    description.DateSeparator = "年";
    description.DateOrder = 1;
    EXPECT_EQ(CutDate("2024年3月5日", description).month.text, "3月5日");
    EXPECT_EQ(CutDate("2024年3月5日", description).day.text, "5日");
}

} // namespace
} // namespace quorvane
