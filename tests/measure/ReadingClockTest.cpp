#include "measure/ReadingClock.h"

#include "measure/Pacing.h"

#include <gtest/gtest.h>
#include <vector>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::days;

constexpr auto kDay = std::chrono::local_days(std::chrono::year(2024) / 2 / 28);

TEST(ReadingClock, ReadsTimesOfDay)
{
    EXPECT_EQ(TimeOfDay("00:00:00"), 0s);
    EXPECT_EQ(TimeOfDay("23:59:59"), 86399s);
    EXPECT_EQ(TimeOfDay("9:5:1"), 9h + 5min + 1s);
    for (const std::string_view text : {"", "24:00:00", "09:60:00", "09:00:60", "09:00", "09:00:00x",
                                        " 09:00:00", "-9:00:00", "009:00:00", "9::00", "AB:CD:EF"})
        EXPECT_FALSE(TimeOfDay(text)) << text;
}

TEST(ReadingClock, NeverRunsBackwards)
{
    struct Row {
        std::string_view what;
        LocalMoment start;
        std::vector<std::pair<std::string_view, LocalMoment>> readings;
    };
    const Row rows[] = {
        {"plain", kDay + 9h, {{"09:00:01", kDay + 9h + 1s}, {"09:00:02", kDay + 9h + 2s}}},
        {"an instrument whose clock is quite off",
         kDay + 9h,
         {{"03:00:00", kDay + 3h}, {"03:00:01", kDay + 3h + 1s}}},
        {"midnight", kDay + 23h, {{"23:59:59", kDay + days(1) - 1s}, {"00:00:00", kDay + days(1)}}},
        {"two midnights",
         kDay + 23h,
         {{"23:00:00", kDay + 23h},
          {"08:00:00", kDay + 32h},
          {"19:00:00", kDay + 43h},
          {"06:00:00", kDay + 54h}}}, // 29 February in between
        {"exactly 12 hours back is the previous instant",
         kDay + 13h,
         {{"13:00:00", kDay + 13h}, {"01:00:00", kDay + 13h}}},
        {"one second more is the next day",
         kDay + 13h,
         {{"13:00:00", kDay + 13h}, {"00:59:59", kDay + 25h - 1s}}},
        {"the clock was set back a little",
         kDay + 9h,
         {{"09:00:10", kDay + 9h + 10s}, {"09:00:05", kDay + 9h + 10s}, {"09:00:11", kDay + 9h + 11s}}},
        {"unreadable",
         kDay + 9h,
         {{"09:00:01", kDay + 9h + 1s}, {"0x:00:02", kDay + 9h + 1s}, {"", kDay + 9h + 1s}}},
        {"unreadable at first, by an instrument that is an hour behind",
         kDay + 9h,
         {{"", kDay + 9h}, {"08:00:01", kDay + 9h}, {"x", kDay + 9h}, {"08:00:02", kDay + 9h + 1s}}},
        {"unreadable at first, by one that is ahead",
         kDay + 9h,
         {{"", kDay + 9h}, {"09:59:59", kDay + 10h - 1s}}},
        {"instrument some seconds ahead over midnight",
         kDay + days(1) - 2s,
         {{"00:00:03", kDay + days(1) + 3s}}},
        {"instrument some seconds behind over midnight",
         kDay + days(1) + 2s,
         {{"23:59:58", kDay + days(1) - 2s}, {"00:00:01", kDay + days(1) + 1s}}},
    };
    for (const Row& row : rows) {
        ReadingClock clock;
        clock.Begin(row.start);
        for (const auto& [text, moment] : row.readings)
            EXPECT_EQ(clock.Next(text).time_since_epoch(), moment.time_since_epoch())
                << row.what << ": " << text;
    }
}

TEST(Pacing, LaysTheIntervalOnTheTimers)
{
    struct Row {
        int seconds;
        bool withInstrument;
        int minutes;
        std::chrono::milliseconds timer2, timer3;
    };
    const Row rows[] = {
        {1, true, 1, 900ms, 1ms},      {1, false, 1, 1000ms, 1ms},    {59, true, 1, 58900ms, 1ms},
        {59, false, 1, 59000ms, 1ms},  {60, true, 1, 60000ms, 1ms},   {61, true, 1, 60000ms, 1000ms},
        {90, true, 1, 60000ms, 30s},   {119, false, 1, 60000ms, 59s}, {120, true, 2, 60000ms, 1ms},
        {900, true, 15, 60000ms, 1ms}, {899, true, 14, 60000ms, 59s},
    };
    for (const Row& row : rows) {
        const Pacing pacing = PacingFor(row.seconds, row.withInstrument);
        EXPECT_EQ(pacing.minutesPerSample, row.minutes) << row.seconds;
        EXPECT_EQ(pacing.timer2, row.timer2) << row.seconds;
        EXPECT_EQ(pacing.timer3, row.timer3) << row.seconds;
    }
}

} // namespace
} // namespace quorvane
