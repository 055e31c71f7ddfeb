#include "instrument/DateTimeText.h"

#include "tests/support/FixedLocale.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::local_days;

constexpr LocalMoment kEarly = local_days{2024y / 3 / 5} + 9h + 4min + 7s;
constexpr LocalMoment kLate = local_days{2009y / 12 / 31} + 13h + 45min + 30s;
constexpr LocalMoment kMidnight = local_days{2024y / 2 / 29};
constexpr LocalMoment kNoon = local_days{2024y / 2 / 29} + 12h;

TEST(DateTimeText, DateFollowsTheRegionalPattern)
{
    struct Row {
        std::string_view what;
        std::string pattern;
        LocalMoment moment;
        std::string_view text;
    };
    const Row rows[] = {
        {"year first", "yyyy/MM/dd", kEarly, "2024/03/05"},
        {"without leading zeros", "M/d/yyyy", kEarly, "3/5/2024"},
        {"two digits need no zero", "M/d/yyyy", kLate, "12/31/2009"},
        {"points", "dd.MM.yyyy", kEarly, "05.03.2024"},
        {"two digits of the year", "dd-MM-yy", kLate, "31-12-09"},
        {"one digit of the year", "d/M/y", kLate, "31/12/9"},
        {"words between apostrophes", "d.M.yyyy 'day'", kEarly, "5.3.2024 day"},
        {"before 1970", "yyyy-MM-dd", local_days{1969y / 7 / 20} + 23h + 59min + 59s, "1969-07-20"},
        {"leap day", "d MM yyyy", kMidnight, "29 02 2024"},
    };
    for (const Row& row : rows) {
        FixedLocale locale;
        locale.shortDateFormat = row.pattern;
        EXPECT_EQ(SystemDateText(row.moment, locale), row.text) << row.what;
    }
}

TEST(DateTimeText, TimeFollowsTheRegionalPattern)
{
    struct Row {
        std::string_view what;
        std::string pattern;
        LocalMoment moment;
        std::string_view text;
    };
    const Row rows[] = {
        {"24 hours", "HH:mm:ss", kLate, "D 13:45:30"},
        {"24 hours, leading zeros", "HH:mm:ss", kEarly, "D 09:04:07"},
        {"24 hours without a leading zero", "H:mm:ss", kEarly, "D 9:04:07"},
        {"nothing doubled", "H.m.s", kEarly, "D 9.4.7"},
        {"12 hours in the morning", "h:mm:ss tt", kEarly, "D 9:04:07 vorm."},
        {"12 hours in the afternoon", "h:mm:ss tt", kLate, "D 1:45:30 nachm."},
        {"12 hours, sign first", "tt hh:mm:ss", kEarly, "D vorm. 09:04:07"},
        {"noon is 12 in the afternoon", "h:mm:ss tt", kNoon, "D 12:00:00 nachm."},
        {"midnight is 12 in the morning", "h:mm:ss tt", kMidnight, "D 12:00:00 vorm."},
        {"midnight of 24 hours", "HH:mm:ss", kMidnight, "D 00:00:00"},
        {"letters between apostrophes are words", "HH'h'mm'm'", kLate, "D 13h45m"},
    };
    for (const Row& row : rows) {
        FixedLocale locale;
        locale.shortDateFormat = "D";
        locale.timeFormat = row.pattern;
        locale.morningSign = "vorm.";
        locale.afternoonSign = "nachm.";
        EXPECT_EQ(SystemDateTimeText(row.moment, locale), row.text) << row.what;
    }
}

TEST(DateTimeText, InstrumentKnowsOneFormOfTime)
{
    EXPECT_EQ(InstrumentTimeText(kEarly), "09:04:07");
    EXPECT_EQ(InstrumentTimeText(kLate), "13:45:30");
    EXPECT_EQ(InstrumentTimeText(kMidnight), "00:00:00");
    EXPECT_EQ(InstrumentTimeText(kMidnight - 1s), "23:59:59");
}

} // namespace
} // namespace quorvane
