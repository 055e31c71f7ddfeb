#include "instrument/MeasuringProgram.h"

#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/InstrumentVectors.h"

#include <gtest/gtest.h>
#include <limits>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::local_days;

constexpr std::string_view kWrong = "The setup is incorrect. Redo setup.";
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A program that can be sent, on a Wednesday at half past nine.
struct ProgramWorld {
    ProgramWorld()
    {
        clock.now = local_days{2024y / 5 / 1} + 9h + 30min;
        state.ProgramStartDate = "2024/05/01";
        state.ProgramStartTime = "09:30:00";
        state.ProgramMeasureHours = 1;
        state.ProgramMeasureMinutes = 30;
        state.ProgramMeasureCount = 120;
    }

    ApplicationState state;
    FixedLocale locale;
    FixedClock clock;
    StringTable table{TableLanguage::English};
    Texts texts{table, state};
    ProgramSurroundings rules{state, locale, clock, texts};
};

void ExpectRefusal(const std::optional<Message>& message, std::string_view text, int titleId,
                   std::string_view what)
{
    ASSERT_TRUE(message) << what;
    EXPECT_EQ(message->text, text) << what;
    EXPECT_EQ(message->icon, Icon::Critical) << what;
    EXPECT_EQ(message->titleId, titleId) << what;
}

TEST(MeasuringProgram, TakesNumbersThatAreInTheirRange)
{
    using enum ProgramField;
    struct Row {
        ProgramField field;
        std::string_view text;
        double stored;          ///< 1 before
        std::string_view range; ///< empty: taken
    };
    const Row rows[] = {
        {Count, "30000", 30000, ""},
        {Count, "30000,4", 1, "(1-30000)"}, // what was typed is in the range,
                                            // not what it is rounded to
        {Count, "0.5", 1, "(1-30000)"},
        {Count, "", 1, "(1-30000)"},
        {Count, "1E300", 1, "(1-30000)"},
        {Count, "2.5", 2, ""},
        {Hours, "99", 99, ""},
        {Hours, "99.4", 1, "(0-99)"},
        {Hours, "none", 0, ""},
        {Hours, "-1", 1, "(0-99)"},
        {Minutes, "58,9", 59, ""},
        {Minutes, "60", 1, "(0-59)"},
    };
    for (const Row& row : rows) {
        ProgramWorld world;
        ApplicationState& state = world.state;
        state.ProgramMeasureCount = state.ProgramMeasureHours = state.ProgramMeasureMinutes = 1;
        const auto message = LeaveProgramNumber(world.rules, row.field, row.text, ",");
        EXPECT_EQ(row.field == Count   ? state.ProgramMeasureCount
                  : row.field == Hours ? state.ProgramMeasureHours
                                       : state.ProgramMeasureMinutes,
                  row.stored)
            << row.text;
        ASSERT_EQ(message.has_value(), !row.range.empty()) << row.text;
        if (message)
            ExpectRefusal(*message, "It is over the setting range. Redo setup." + std::string(row.range),
                          kInstrumentSettingText, row.text);
    }
}

TEST(MeasuringProgram, HasAnotherTotalWhenANumberChanges)
{
    ProgramWorld world;
    world.state.ProgramTotalHours = 7;
    ASSERT_FALSE(LeaveProgramNumber(world.rules, ProgramField::Count, "120", "."));
    EXPECT_EQ(world.state.ProgramTotalHours, 7) << "left as it was loaded";
    EXPECT_EQ(world.state.ProgramTotalMinutes, 0);
    ASSERT_FALSE(LeaveProgramNumber(world.rules, ProgramField::Count, "5", "."));
    EXPECT_EQ(world.state.ProgramTotalHours, 7); // 5 * 90 min
    EXPECT_EQ(world.state.ProgramTotalMinutes, 30);
    world.state.ProgramMeasureHours = 99;
    world.state.ProgramMeasureMinutes = 59;
    ASSERT_FALSE(LeaveProgramNumber(world.rules, ProgramField::Count, "29999", "."));
    EXPECT_EQ(world.state.ProgramTotalHours, 2999400); // 29999 * 5999 min = 179964001 min
    EXPECT_EQ(world.state.ProgramTotalMinutes, 1);
}

TEST(MeasuringProgram, StoresAStartDateThatPasses)
{
    ProgramWorld world;
    ExpectRefusal(LeaveStartDate(world.rules, ""), kWrong, kProgramNameText, "no date");
    ExpectRefusal(LeaveStartDate(world.rules, "2024/06/31"), kWrong, kInstrumentSettingText, "no such day");
    EXPECT_EQ(world.state.ProgramStartDate, "2024/05/01");
    EXPECT_FALSE(LeaveStartDate(world.rules, " 2024/06/30 "));
    EXPECT_EQ(world.state.ProgramStartDate, "2024/06/30");
}

TEST(MeasuringProgram, KnowsATimeOfDay)
{
    EXPECT_EQ(StartTimeText(9, 5, 0), "09:05:00");
    const std::optional<StartTime> last = ReadStartTime("23:59:58");
    ASSERT_TRUE(last);
    EXPECT_EQ(last->hours * 10000 + last->minutes * 100 + last->seconds, 235958);
    for (const char* const text : {"", "9:30:00", "09:30", "09:30:00 ", "24:00:00", "09:60:00", "09:30:60",
                                   "09-30-00", "-1:30:00", "0a:30:00"})
        EXPECT_FALSE(ReadStartTime(text)) << text;
}

TEST(MeasuringProgram, IsCheckedFieldByField)
{
    using enum ProgramField;
    struct Row {
        std::string_view what;
        std::string date, time;
        double hours, minutes, count;
        std::string text;
        ProgramField field;
        int titleId = kInstrumentSettingText;
    };
    const std::string range = "It is over the setting range. Redo setup.", wrong(kWrong);
    const Row rows[] = {
        {"all", "", "", 0, 0, 0, wrong, StartDate, kProgramNameText},
        {"no such day", "2024/05/32", "", 0, 0, 0, wrong, StartDate},
        {"no time", "2024/05/01", "", 100, 0, 0, wrong, StartTime},
        {"hours", "2024/05/01", "09:30:00", 99.5, 60, 0, range + "(0-99)", Hours},
        {"no number", "2024/05/01", "09:30:00", kNaN, 60, 0, range + "(0-99)", Hours},
        {"minutes", "2024/05/01", "09:30:00", 0, -1, 0, range + "(0-59)", Minutes},
        {"no measure time", "2024/05/01", "09:30:00", 0, 0, 0, wrong, Minutes},
        {"none when rounded", "2024/05/01", "09:30:00", 0.4, 0.4, 0, wrong, Minutes},
        {"part of a count", "2024/05/01", "09:30:00", 0, 0.5, 0.9, range + "(1-30000)", Count},
        {"huge", "2024/05/01", "09:30:00", 99, 59, 1E300, range + "(1-30000)", Count},
    };
    ProgramWorld world;
    EXPECT_FALSE(CheckProgram(world.rules));
    for (const Row& row : rows) {
        world.state.ProgramStartDate = row.date;
        world.state.ProgramStartTime = row.time;
        world.state.ProgramMeasureHours = row.hours;
        world.state.ProgramMeasureMinutes = row.minutes;
        world.state.ProgramMeasureCount = row.count;
        const std::optional<ProgramFault> fault = CheckProgram(world.rules);
        ASSERT_TRUE(fault) << row.what;
        EXPECT_EQ(fault->field, row.field) << row.what;
        ExpectRefusal(fault->message, row.text, row.titleId, row.what);
    }
}

TEST(MeasuringProgram, IsNotStartedInThePast)
{
    constexpr std::string_view kDatePast = "Start date is invalid.";
    constexpr std::string_view kTimePast = "Start time is invalid.";
    struct Row {
        std::string_view what;
        std::string format;
        std::string date, time;
        LocalMoment now;
        std::string_view text; ///< empty: nothing to say
    };
    constexpr LocalMoment kDay = local_days{2024y / 5 / 1};
    const Row rows[] = {
        {"this second", "yyyy/MM/dd", "2024/05/01", "09:30:00", kDay + 9h + 30min, ""},
        {"a second ago", "yyyy/MM/dd", "2024/05/01", "09:30:00", kDay + 9h + 30min + 1s, kTimePast},
        {"tomorrow, earlier in the day", "dd.MM.yyyy", "02.05.2024", "00:00:00", kDay + 23h, ""},
        {"yesterday, later in the day", "M/d/yyyy", "4/30/2024", "23:59:59", kDay, kDatePast},
        {"last year, a later month", "dd-MM-yy", "31-12-23", "23:59:59", kDay, kDatePast},
        // The normalised texts of these clocks are "24:30:00" and "12:30:00".
        {"early afternoon", "M/d/yyyy", "5/1/2024", "13:00:00", kDay + 12h + 30min, ""},
        {"past noon", "M/d/yyyy", "5/1/2024", "12:15:00", kDay + 12h + 30min, kTimePast},
        {"morning, past midnight", "M/d/yyyy", "5/1/2024", "09:00:00", kDay + 30min, ""},
        {"left open", "yyyy/MM/dd", "0000/05/01", "00:00:00", kDay + 9h, ""},
        {"left open, 2 digits", "dd/MM/yy", "01/05/00", "00:00:00", kDay + 9h, ""},
        {"too short to be sent", "d.M.yy", "1.5.23", "00:00:00", kDay + 9h, ""},
    };
    for (const Row& row : rows) {
        ProgramWorld world;
        world.locale.shortDateFormat = row.format;
        world.locale.timeFormat = "h:mm:ss tt";
        world.clock.now = row.now;
        world.state.ProgramStartDate = row.date;
        world.state.ProgramStartTime = row.time;
        const std::optional<ProgramFault> fault = CheckStartMoment(world.rules);
        ASSERT_EQ(fault.has_value(), !row.text.empty()) << row.what;
        if (!fault)
            continue;
        EXPECT_EQ(fault->field, row.text == kDatePast ? ProgramField::StartDate : ProgramField::StartTime);
        EXPECT_EQ(fault->message.text, row.text) << row.what;
        EXPECT_EQ(fault->message.icon, Icon::None) << row.what;
        EXPECT_EQ(fault->message.titleId, kProgramNameText) << row.what;
    }
}

TEST(MeasuringProgram, IsSentInFieldsOfFixedLength)
{
    ProgramWorld world;
    for (const ProgramVector& vector : kProgramVectors) {
        world.state.ProgramStartDate = vector.startDate;
        world.state.ProgramStartTime = vector.startTime;
        world.state.ProgramMeasureHours = vector.hours;
        world.state.ProgramMeasureMinutes = vector.minutes;
        world.state.ProgramMeasureCount = vector.count;
        const InstrumentCommand command = ProgramCommand(world.rules);
        EXPECT_EQ(command.Text() + "\r\n", vector.exchange.request) << vector.exchange.what;
        EXPECT_EQ(command.waiting, InstrumentCommand::Waiting::BeforeFirstRead);
        EXPECT_FALSE(command.clearInputFirst);
    }
    world.state.ProgramStartTime = "09:30:00";
    world.state.ProgramStartDate = "2024/5/1 at noon";
    world.state.ProgramMeasureHours = 5;
    world.state.ProgramMeasureMinutes = 0;
    world.state.ProgramMeasureCount = 7.5; // as a file may hold it; a half is rounded away from zero
    EXPECT_EQ(ProgramCommand(world.rules).Text(), "P;09:30:00;05:00;00008");
    world.state.ProgramStartTime = "";
    world.state.ProgramMeasureCount = kNaN;
    EXPECT_EQ(ProgramCommand(world.rules).Text(), "P;::;05:00;00000");
}

} // namespace
} // namespace quorvane
