#include "instrument/StartDate.h"

#include "instrument/DateTimeText.h"
#include "tests/support/FixedLocale.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::local_days;

constexpr LocalMoment kSpring = local_days{2024y / 3 / 5};
constexpr LocalMoment kWinter = local_days{2024y / 12 / 31};

TEST(StartDate, IsCheckedAtThePlacesOfToday)
{
    constexpr auto kPasses = std::nullopt;
    constexpr auto kShape = StartDateFault::Shape;
    constexpr auto kDay = StartDateFault::Day;
    struct Row {
        std::string_view what;
        std::string format;
        LocalMoment today;
        std::string_view text;
        std::optional<StartDateFault> fault;
    };
    const Row rows[] = {
        {"no 13th month", "yyyy/MM/dd", kSpring, "2024/13/01", kDay},
        {"year day month", "yyyy-dd-MM", kSpring, "2024-13-05", kPasses},
        {"month day year", "MM-dd-yyyy", kSpring, "09-31-2024", kDay},
        {"month year day", "MM/yyyy/dd", kSpring, "02/2023/29", kDay},
        {"day month year", "dd.MM.yyyy", kSpring, "32.01.2024", kDay},
        {"day year month, leap year", "dd/yyyy/MM", kSpring, "29/2024/02", kPasses},
        {"two-digit year", "dd.MM.yy", kSpring, "29.02.27", kDay},
        // Meant: every fourth year, not every hundredth; that 400 is an exception is left out.
        {"February 2000 has 28 days", "yyyy/MM/dd", kSpring, "2000/02/29", kDay},
        // Meant: 0 is no month and no day, but passes.
        {"month 0", "yyyy/MM/dd", kSpring, "2024/00/31", kPasses},
        {"day 0", "yyyy/MM/dd", kSpring, "2024/02/00", kPasses},
        {"negative day", "yyyy/MM/dd", kSpring, "2024/05/-1", kDay},
        {"negative month", "yyyy/MM/dd", kSpring, "2024/-1/05", kDay},

        // Meant: in spring the month is looked for one character after where it stands, and ".1" is no month.
        {"13th month, at today's place", "d.M.yyyy", kWinter, "05.13.2024", kDay},
        {"13th month, beside today's place", "d.M.yyyy", kSpring, "05.13.2024", kPasses},
        {"99th day, at today's place", "M/d/yyyy", kWinter, "12/99/2024", kDay},
        {"99th day, beside today's place", "M/d/yyyy", kSpring, "12/99/2024", kPasses},
        // At today's places these days do not exist; a day that does is never refused.
        {"the separator reads as a sign", "d-M-yyyy", kSpring, "31-12-2024", kPasses},
        {"the year is cut off", "M/d/yyyy", kSpring, "2/29/2024", kPasses},
        {"the sign, and no day either", "d-M-yyyy", kSpring, "31-11-2024", kDay},
        {"the sign, and an unusable year", "d-M-yyyy", kSpring, "31-12-20a4", kDay},

        // A year of only zeros leaves the date open.
        {"open, 4 digits", "yyyy/MM/dd", kSpring, "0000/99/99", kPasses},
        {"open, 2 digits", "dd/MM/yy", kSpring, "99/99/00", kPasses},
        {"open, behind a blank", "d. M. yyyy", kSpring, "99. 99. 0000", kPasses},
        {"2 zeros of 4", "yyyy/MM/dd", kSpring, "00", kShape},

        {"empty", "yyyy/MM/dd", kSpring, "", kShape},
        {"other separators", "yyyy/MM/dd", kSpring, "2024-05-01", kShape},
        {"another second separator", "yyyy/MM/dd", kSpring, "2024/05-01", kShape},
        {"the first of two separators twice", "yyyy/MM-dd", kSpring, "2024/05/01", kPasses},
        {"two kinds of separators", "yyyy'年'MM'月'dd'日'", kSpring, "2024年04月30日", kPasses},
    };
    for (const Row& row : rows) {
        FixedLocale locale;
        locale.shortDateFormat = row.format;
        LocaleDescription description;
        EXPECT_EQ(CheckStartDate(row.text, description, locale, row.today), row.fault) << row.what;
    }
}

TEST(StartDate, EveryDayPassesAsTheSystemWritesIt)
{
    const LocalMoment todays[] = {kSpring, local_days{2024y / 3 / 15}, local_days{2024y / 12 / 5}, kWinter};
    for (const char* const format : {"yyyy/M/d", "d.M.yyyy", "M/d/yyyy", "d/M/yy", "yy-M-d", "M-yyyy-d",
                                     "d-yyyy-M", "yyyy-d-M", "d. M. yyyy", "yyyy'年'M'月'd'日'"}) {
        FixedLocale locale;
        locale.shortDateFormat = format;
        LocaleDescription description;
        for (const LocalMoment today : todays) {
            for (LocalMoment day = local_days{2023y / 1 / 1}; day < local_days{2025y / 1 / 1}; day += 24h) {
                const std::string text = SystemDateText(day, locale);
                ASSERT_EQ(CheckStartDate(text, description, locale, today), std::nullopt)
                    << text << " on " << SystemDateText(today, locale);
            }
        }
    }
}

TEST(StartDate, IsSentWithTenCharactersOrNotAtAll)
{
    const auto sent = [](const std::string& format, std::string_view text) {
        FixedLocale locale;
        locale.shortDateFormat = format;
        LocaleDescription description;
        return RequestDate(text, description, locale, kSpring);
    };
    EXPECT_EQ(sent("d.M.yyyy", "5.3.202"), "") << "7 characters";
    EXPECT_EQ(sent("dd-MM-yy", "05-03-24"), "2024/03/05") << "8";
    EXPECT_EQ(sent("yyyy'年'M'月'd'日'", "2024年12月5日"), "2024/12/05") << "10 and not 16";
    EXPECT_EQ(sent("yyyy/MM/dd", "2024/05/01 "), "") << "11";
    EXPECT_EQ(sent("yyyy/MM/dd", "0000/05/01"), "0000/00/00");
    EXPECT_EQ(sent("dd/MM/yy", "01/05/00"), "0000/00/00") << "the field is as long as ever";
}

} // namespace
} // namespace quorvane
