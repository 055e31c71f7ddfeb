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

TEST(DateTimeText, FollowsTheRegionalPatterns)
{
    struct Row {
        std::string_view what;
        std::string date, time;
        LocalMoment moment;
        std::string_view text;
    };
    const Row rows[] = {
        {"leading zeros", "yyyy/MM/dd", "HH:mm:ss", kEarly, "2024/03/05 09:04:07"},
        {"no leading zeros", "M/d/yyyy", "H.m.s", kEarly, "3/5/2024 9.4.7"},
        {"two digits need no zero", "M/d/yyyy", "H:m:s", kLate, "12/31/2009 13:45:30"},
        {"two digits of the year", "dd-MM-yy", "HH", kLate, "31-12-09 13"},
        {"one digit of the year", "d/M/y", "HH", kLate, "31/12/9 13"},
        {"words between apostrophes", "d.M. 'day'", "HH'h'mm'm'", kLate, "31.12. day 13h45m"},
        {"an apostrophe among words", "d \'\'M", "h 'o''clock'", kLate, "31 12 1 o'clock"},
        {"before 1970", "yyyy-MM-dd", "HH:mm", local_days{1969y / 7 / 20} + 23h + 59min, "1969-07-20 23:59"},
        {"12 hours in the morning", "d", "h:mm:ss tt", kEarly, "5 9:04:07 vorm."},
        {"12 hours in the afternoon, sign first", "d", "tt hh:mm", kLate, "31 nachm. 01:45"},
        {"noon is 12 in the afternoon", "d", "h:mm tt", kMidnight + 12h, "29 12:00 nachm."},
        {"midnight is 12 in the morning", "d", "h:mm tt", kMidnight, "29 12:00 vorm."},
    };
    for (const Row& row : rows) {
        FixedLocale locale;
        locale.shortDateFormat = row.date;
        locale.timeFormat = row.time;
        locale.morningSign = "vorm.";
        locale.afternoonSign = "nachm.";
        EXPECT_EQ(SystemDateTimeText(row.moment, locale), row.text) << row.what;
    }
}

TEST(DateTimeText, InstrumentKnowsOneFormOfTime)
{
    EXPECT_EQ(InstrumentTimeText(kEarly), "09:04:07");
    EXPECT_EQ(InstrumentTimeText(kMidnight), "00:00:00");
    EXPECT_EQ(InstrumentTimeText(kMidnight - 1s), "23:59:59");
}

} // namespace
} // namespace quorvane
