#include "tests/support/Bench.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace quorvane {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using Arguments = std::vector<std::string>;

/// A bench with the traffic of its instrument, and what a command printed and ended with.
struct Table : Bench {
    explicit Table(Arguments instrument = {}) : Bench(With(std::move(instrument), {"--verbose"})) {}

    static Arguments With(Arguments arguments, const Arguments& more)
    {
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }
    int Do(const Arguments& arguments)
    {
        ChildProgram program = Start(With(arguments, {"--port", Port()}), "errors.txt");
        printed = program.RestOfOutput();
        return program.Wait();
    }
    [[nodiscard]] std::string Traffic() const { return FileBytes(Folder().Path("instrument.txt")); }

    std::string printed;
};

Arguments ProgramAt(const std::string& start)
{
    return {"program", "--start", start, "--measure-time", "1:30", "--count", "120"};
}

TEST(Setting, SetsTheClockAndReadsItBack)
{
    Table table({"--start-at", "2024-05-01 09:30:00"});
    EXPECT_EQ(table.Do({"clock"}), 0);
    EXPECT_THAT(table.printed,
                MatchesRegex("System Date: [0-9/]{10}  System Time: [0-9:]{8}\n"
                             "Instrument Date: 2024/05/01  Instrument Time: 09:3[0-9]:[0-9]{2}\n"));
    EXPECT_EQ(table.Do({"clock", "--set"}), 0);
    EXPECT_THAT(table.printed, Not(HasSubstr("2024/05/01")));
    EXPECT_EQ(table.Said(), "It completed.\n");
    EXPECT_EQ(table.Do({"clock"}), 0);
    EXPECT_THAT(table.printed, MatchesRegex(".*\nInstrument Date: [0-9/]{10}  Instrument Time: [0-9:]{8}\n"));
    EXPECT_THAT(table.printed, Not(HasSubstr("2024/05/01")));
    EXPECT_EQ(table.ErrorLog(), "");
}

TEST(Setting, SendsAProgramOnlyWhenItIsToldTo)
{
    Table table;
    const std::string request = "P2079/12/31;09:30:00;01:30;00120";
    const Arguments program = ProgramAt("2079-12-31 09:30:00");
    EXPECT_EQ(table.Do(program), 0);
    EXPECT_EQ(table.printed, request + "\n");
    EXPECT_EQ(table.Said(), "Nothing was sent; with --send it is.\n");
    EXPECT_THAT(table.Traffic(), Not(HasSubstr(request)));

    EXPECT_EQ(table.Do(Table::With(program, {"--send"})), 0);
    EXPECT_EQ(table.printed, request + "\n");
    EXPECT_EQ(table.Said(), "It completed.\n");
    EXPECT_THAT(table.Traffic(), HasSubstr(request + "\\r\\n"));
    EXPECT_EQ(table.ErrorLog(), "");
}

TEST(Setting, TakesAProgramFromAFileAndItsMinutesFromTheSettings)
{
    Table table;
    std::ofstream(table.Folder().Path("Quorvane.ini"), std::ios::binary)
        << "[Quorvane Software Version]\nQuorvane_Ver.0100\nDustMeasureTime_Minute= "
           "2\nDustMeasureTime_Second= 45\n";
    std::ofstream(table.Folder().Path("shift.ini"), std::ios::binary)
        << "[Program Setting]\r\nMeasure Number= 8\r\nMeasure Time_Minute= 3\r\n"
           "Measure StartDate=12/31/79\r\nMeasure StartTime=06:00:05\r\n";
    EXPECT_EQ(table.Do({"program", "--file", table.Folder().Path("shift.ini")}), 0) << table.Said();
    EXPECT_EQ(table.printed, "P2079/12/31;06:00:05;03:45;00008\n");
}

TEST(Setting, RefusesBeforeAnythingIsSent)
{
    struct Row {
        std::string_view what;
        Arguments arguments;
        std::string said;
    };
    const Row rows[] = {
        {"start in the past", ProgramAt("2024-05-01 09:30:00"), "Start date is invalid.\n"},
        {"no time to measure",
         {"program", "--start", "2079-12-31 00:00:00", "--measure-time", "0:00", "--count", "1"},
         "Sampling Time: The setup is incorrect. Redo setup.\n"},
        {"no file",
         {"program", "--file", "/absent.ini"},
         "The measuring program could not be loaded. " + TriedCommandLine().absentFile},
        {"K-factor too small", {"k-factor", "0.00009"}, "(0.0001-0.0099)\n"},
        {"K-factor in thousandths", {"k-factor", "1.2"}, "(0.0001-0.0099)\n"},
    };
    Table table;
    for (const Row& row : rows) {
        EXPECT_EQ(table.Do(Table::With(row.arguments, {"--send"})), 1) << row.what;
        EXPECT_THAT(table.Said(), HasSubstr(row.said)) << row.what;
        EXPECT_EQ(table.printed, "") << row.what;
    }
    EXPECT_EQ(table.Traffic(), "");
}

TEST(Setting, RefusesAYearThatTheDatePatternDoesNotTell)
{
    Table table;
    EXPECT_EQ(table.Do(Table::With(ProgramAt("2080-01-01 00:00:00"), {"--send"})), 1);
    EXPECT_THAT(table.Said(), HasSubstr("(MM/dd/yy)"));
    EXPECT_EQ(table.Traffic(), "");
}

/// What the operator is left with for each answer of the instrument, good or bad.
struct Row {
    std::string name;
    std::string fault; ///< of the simulated instrument
    Arguments arguments;
    int status;
    std::string printed;
    std::string said;
    std::string log; ///< the error log, without date and time
};

class SettingExchange : public testing::TestWithParam<Row> {};

TEST_P(SettingExchange, EndsWithTheRightWordsAndRecords)
{
    const Row& row = GetParam();
    Table table(row.fault.empty() ? Arguments{} : Arguments{"--fault", row.fault});
    EXPECT_EQ(table.Do(row.arguments), row.status);
    EXPECT_EQ(table.printed, row.printed);
    EXPECT_EQ(table.Said(), row.said);
    const std::string log = table.ErrorLog();
    EXPECT_EQ(log.substr(std::min(log.find(','), log.size())), row.log);
    EXPECT_EQ(FileBytes(table.Folder().Path("Quorvane.ini")), "") << "the settings are not written";
}

const Arguments kSendKFactor{"k-factor", "0.0012", "--send"};
const std::string kCompleted = "It completed.\n";
const std::string kLineError = "RS232C ERROR.\n";

INSTANTIATE_TEST_SUITE_P(
    OnTheLine, SettingExchange,
    testing::Values(
        Row{"Check", "", {"check"}, 0, "The instrument answers.\n", "", ""},
        Row{"CheckUnanswered", "silent:N", {"check"}, 1, "", kLineError, ",N Command,, 101\r\n"},
        Row{"ClockUnanswered", "silent:M", {"clock"}, 1, "", kLineError, ",M Command,, 4\r\n"},
        Row{"ClockNotSet", "no-ack:T", {"clock", "--set"}, 1, "", kLineError, ",T Command,, 4\r\n"},
        Row{"KFactor", "", kSendKFactor, 0, "E1.2\n", kCompleted, ""},
        Row{"KFactorOnTheSecondRead", "late-ack:450,E", kSendKFactor, 0, "E1.2\n", kCompleted, ""},
        Row{"KFactorWronglyAnswered", "wrong-ack:E", kSendKFactor, 1, "E1.2\n", kLineError,
            ",E Command,, 4\r\n"},
        Row{"ProgramUnanswered", "silent:P", Table::With(ProgramAt("2079-12-31 09:30:00"), {"--send"}), 1,
            "P2079/12/31;09:30:00;01:30;00120\n", kLineError, ",P Command,, 4\r\n"}),
    [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

TEST(Setting, CtrlCCancels)
{
    Table table({"--fault", "silent:P"});
    ChildProgram program = table.Start(
        Table::With(ProgramAt("2079-12-31 09:30:00"), {"--send", "--port", table.Port()}), "errors.txt");
    while (table.Traffic().find("P2079") == std::string::npos)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    program.Signal(SIGINT);
    static_cast<void>(program.RestOfOutput());
    EXPECT_EQ(program.Wait(), 1);
    EXPECT_EQ(table.Said(), "Cancelled.\n");
    EXPECT_EQ(table.ErrorLog(), "");
}

TEST(Setting, UsesThePortOfTheSettingsAlsoWhenTheseAreForMadeUpReadings)
{
    const Table table;
    std::ofstream(table.Folder().Path("Quorvane.ini"), std::ios::binary)
        << "[Quorvane Software Version]\nQuorvane_Ver.0100\nProgMode= False\nRsPort_CH1="
        << TriedCommandLine().comName
        << "\nRsSpeed_CH1=38400\nRsDataBit_CH1=8\nRsParity_CH1=N\nRsStopBit_CH1=1\nRsFlow_CH1= 3\n";
    ChildProgram program = table.Start({"check"}, "errors.txt");
    EXPECT_EQ(program.RestOfOutput(), "The instrument answers.\n");
    EXPECT_EQ(program.Wait(), 0) << table.Said();
    EXPECT_THAT(table.Traffic(), HasSubstr("N\\r\\n")) << "without a line the check would succeed as well";
}

TEST(Setting, TellsThatThePortIsBusy)
{
    const Table table;
    ChildProgram measurement = table.Measure({"--samples", "100", "--interval", "1"});
    static_cast<void>(measurement.NextLine()); // the heading: the port is open
    ChildProgram check = table.Start({"check", "--port", table.Port()}, "check.txt");
    EXPECT_EQ(check.RestOfOutput(), "");
    EXPECT_EQ(check.Wait(), 1);
    EXPECT_THAT(FileBytes(table.Folder().Path("check.txt")),
                testing::StartsWith(table.Port() + " is not used.\nAnother program is using the port."));
    measurement.Signal(SIGINT);
    static_cast<void>(measurement.RestOfOutput());
    EXPECT_EQ(measurement.Wait(), 0);
}

} // namespace
} // namespace quorvane
