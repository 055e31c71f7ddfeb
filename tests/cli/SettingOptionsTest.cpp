#include "cli/SettingOptions.h"

#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using Arguments = std::vector<std::string>;

TEST(SettingOptions, RefuseWhatCannotBeDone)
{
    const std::string either = "give either --file, or --start, --measure-time and --count";
    const Arguments program{"--start", "2079-12-31 09:30:00", "--measure-time"};
    const auto withTime = [&](const std::string& time) {
        return Arguments{program[0], program[1], program[2], time, "--count", "1"};
    };
    const auto timeFault = [](const std::string& time) {
        return "--measure-time takes hours and minutes from \"00:01\" to \"99:59\", not \"" + time + "\"";
    };
    const std::tuple<std::string_view, Arguments, std::string> rows[] = {
        {"check", {"--set"}, "unknown option \"--set\""},
        {"clock", {"now"}, "unexpected argument \"now\""},
        {"program", {"--send"}, either},
        {"program", {"--file", "a.ini", "--count", "1"}, either},
        {"program", {"--count", "1", program[0], program[1]}, "--measure-time is missing"},
        {"program", withTime("01:60"), timeFault("01:60")},
        {"program", withTime("100:00"), timeFault("100:00")},
        {"program", withTime("01:3"), timeFault("01:3")},
        {"program", withTime("01:-3"), timeFault("01:-3")},
        {"program", withTime("-1:30"), timeFault("-1:30")},
        {"program", withTime(":30"), timeFault(":30")},
        {"program", withTime("0130"), timeFault("0130")},
        {"program",
         {"--start", "2079-12-31", "--measure-time", "1:30", "--count", "1"},
         "--start takes a date and time as \"2026-07-31 09:30:00\", not \"2079-12-31\""},
        {"program",
         {program[0], program[1], "--measure-time", "1:30", "--count", "30001"},
         "--count takes a whole number from 1 to 30000, not \"30001\""},
        {"k-factor", {"--send"}, "VALUE is missing"},
        {"k-factor", {"0,0012"}, "VALUE takes a number as 0.0012, not \"0,0012\""},
    };
    for (const auto& [command, arguments, fault] : rows) {
        SettingOptions options;
        const auto found = ReadSettingOptions(SettingActionNamed(command).value(), arguments, options);
        EXPECT_EQ(found.value_or(UsageFault{}).text, fault) << command << " " << arguments.back();
    }
    EXPECT_FALSE(SettingActionNamed("measure"));
}

TEST(StoreProgram, NoticesADateThatDoesNotReachTheInstrument)
{
    using std::chrono::local_days;
    using std::chrono::year;
    struct Row {
        std::string_view what;
        std::string format;
        LocalMoment start;
        std::string stored;
        bool sent;
    };
    const Row rows[] = {
        {"four digits", "yyyy/MM/dd", local_days(year(2124) / 5 / 1), "2124/05/01", true},
        {"short, but not too short", "d.M.yy", local_days(year(2024) / 12 / 31), "31.12.24", true},
        {"too short", "d.M.yy", local_days(year(2024) / 5 / 1), "1.5.24", false},
        {"too long", "yyyy. M. d.", local_days(year(2024) / 5 / 1), "2024. 5. 1.", false},
        {"last year of two digits", "MM/dd/yy", local_days(year(2079) / 12 / 31), "12/31/79", true},
        {"would be 1980", "MM/dd/yy", local_days(year(2080) / 1 / 1), "01/01/80", false},
    };
    for (const Row& row : rows) {
        ApplicationState state;
        FixedLocale locale;
        locale.shortDateFormat = row.format;
        FixedClock clock;
        clock.now = local_days(year(2024) / 3 / 4);
        const StringTable table(TableLanguage::English);
        const Texts texts(table, state);
        const GivenProgram program{row.start + 9h + 30min, 1, 30, 120};
        EXPECT_EQ(StoreProgram(program, {state, locale, clock, texts}), row.sent) << row.what;
        EXPECT_EQ(state.ProgramStartDate, row.stored) << row.what;
        EXPECT_EQ(state.ProgramStartTime, "09:30:00") << row.what;
    }
}

} // namespace
} // namespace quorvane
