#include "tests/support/Bench.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace quorvane {
namespace {

using testing::HasSubstr;

/// Six seconds of dust: concentrations in mg/m3.
void WriteReadings(const std::string& path)
{
    std::ofstream(path) << "seconds,mg/m3\n1,0.013\n2,0.026\n3,0.039\n4,0.26\n5,0.26\n6,0\n";
}

TEST(Measure, PrintsAndSavesWhatTheInstrumentMeasured)
{
    const ScratchFolder readings;
    WriteReadings(readings.Path("dust.csv"));
    const Bench bench(
        {"--readings", readings.Path("dust.csv"), "--speed", "20", "--start-at", "2024-05-01 10:00:00"});
    ChildProgram program = bench.Measure({"--samples", "6", "--interval", "1", "--speed", "20", "--twa",
                                          "0.05", "--stel", "0.1", "--ceiling", "0.26"});
    const std::string printed = program.RestOfOutput();
    EXPECT_EQ(program.Wait(), 0) << bench.Said();

    // Count = concentration / 0.0013; the averages are means of the concentrations so far. The instrument's
    // clock runs from its start on, so that only the hour is known.
    const std::vector<std::string> columns{
        "10,0.013,0.013,0.013,10,0.013",    "20,0.026,0.0195,0.0195,30,0.039",
        "30,0.039,0.026,0.026,60,0.078",    "200,0.26,0.0845,0.0845,260,0.338",
        "200,0.26,0.1196,0.1196,460,0.598", "0,0,0.0997,0.0997,460,0.598"};
    const std::vector<std::string> rows = bench.Rows();
    ASSERT_EQ(rows.size(), columns.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_THAT(rows[i], testing::StartsWith("10:"));
        EXPECT_EQ(rows[i].substr(9), columns[i]);
    }
    EXPECT_THAT(FileBytes(bench.Output()), HasSubstr("\r\nData,6\r\nK Factor,0.0013\r\n"));
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 7) << "a heading and six rows";
    EXPECT_THAT(printed, HasSubstr("        200      0.260     0.1196     0.1196        460      0.598\n"));
    EXPECT_THAT(bench.Said(), HasSubstr("  Alarm TLV-C: 0.26 mg/m3 (0.26)\n"));
    EXPECT_THAT(bench.Said(), HasSubstr("  Alarm TLV-TWA: 0.0845 mg/m3 (0.05)\n"));
    EXPECT_EQ(bench.ErrorLog(), "");
}

TEST(Measure, OneInstrumentServesOneRunAfterTheOther)
{
    const Bench bench({"--speed", "20"});
    for (int turn = 1; turn <= 2; ++turn) {
        ChildProgram program =
            bench.Measure({"--samples", "3", "--interval", "1", "--speed", "20", "--quiet"});
        EXPECT_EQ(program.RestOfOutput(), "");
        EXPECT_EQ(program.Wait(), 0) << bench.Said();
        EXPECT_EQ(bench.Rows().size(), 3U);
    }
}

TEST(Measure, CtrlCStopsAndSavesWhatWasTaken)
{
    const Bench bench({"--speed", "20"});
    ChildProgram program = bench.Measure({"--samples", "65500", "--interval", "1", "--speed", "20"});
    for (int line = 0; line < 4; ++line) // the heading and three rows
        EXPECT_NE(program.NextLine(), "");
    program.Signal(SIGINT);
    const std::string rest = program.RestOfOutput();
    EXPECT_EQ(program.Wait(), 0) << bench.Said();
    EXPECT_EQ(bench.Rows().size(), 3U + static_cast<std::size_t>(std::count(rest.begin(), rest.end(), '\n')));
    EXPECT_THAT(bench.Said(), HasSubstr("long table")); // a warning that waits for no answer
    EXPECT_EQ(bench.ErrorLog(), "");
}

TEST(Measure, ASecondCtrlCGivesTheStopExchangeUp)
{
    const Bench bench({"--speed", "20", "--verbose"});
    ChildProgram program = bench.Measure({"--samples", "65500", "--interval", "1", "--speed", "20"});
    static_cast<void>(program.NextLine());
    static_cast<void>(program.NextLine());
    program.Signal(SIGINT);
    // One N that ends the stream; the quiet second behind it is given up, and the second N never sent.
    const auto commands = [&] {
        const std::string traffic = FileBytes(bench.Folder().Path("instrument.txt"));
        std::size_t count = 0;
        for (std::size_t at = traffic.find("N\\r\\n"); at != std::string::npos;
             at = traffic.find("N\\r\\n", at + 1))
            ++count;
        return count;
    };
    const std::size_t before = commands();
    while (commands() == before)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    program.Signal(SIGINT);
    static_cast<void>(program.RestOfOutput());
    EXPECT_EQ(program.Wait(), 0) << bench.Said();
    EXPECT_LE(commands() - before, 2U) << "the N and its answer";
    EXPECT_GE(bench.Rows().size(), 1U);
    EXPECT_EQ(bench.ErrorLog(), "");
}

TEST(Measure, TellsWhyThePortCannotBeUsed)
{
    const Bench bench({});
    ChildProgram program = bench.Start(
        {"measure", "--port", "/dev/null", "--samples", "1", "--interval", "1", "--output", bench.Output()},
        "errors.txt");
    EXPECT_EQ(program.Wait(), 1);
    EXPECT_THAT(bench.Said(), HasSubstr("/dev/null is not used."));
    EXPECT_THAT(bench.Said(), HasSubstr("does not answer as a serial line."));
    EXPECT_EQ(FileBytes(bench.Output()), "");
}

TEST(Measure, TakesFromTheSettingsFileWhatIsNotGivenAndLeavesItAlone)
{
    const Bench bench({});
    const std::string settings = "[Quorvane Software Version]\nQuorvane_Ver.0100\nTWA_Alarm= 0.001\n"
                                 "STEL_Alarm= 0.002\nC_Alarm= 0.003\n";
    std::ofstream(bench.Folder().Path("Quorvane.ini"), std::ios::binary) << settings;
    ChildProgram program =
        bench.Start({"measure", "--simulate", "--random-seed", "1", "--samples", "3", "--interval", "1",
                     "--speed", "1000", "--twa", "0.0015", "--output", bench.Output()},
                    "errors.txt");
    static_cast<void>(program.RestOfOutput());
    EXPECT_EQ(program.Wait(), 0);
    EXPECT_THAT(bench.Said(), HasSubstr("mg/m3 (0.003)\n"));
    EXPECT_THAT(bench.Said(), HasSubstr("mg/m3 (0.0015)\n"));
    EXPECT_EQ(FileBytes(bench.Folder().Path("Quorvane.ini")), settings);
}

TEST(Measure, FindsADeviceByItsComName)
{
    const Bench bench({"--speed", "20"});
    ChildProgram program = bench.Start({"measure", "--port", TriedCommandLine().comName, "--samples", "1",
                                        "--interval", "1", "--speed", "20", "--output", bench.Output()},
                                       "errors.txt");
    static_cast<void>(program.RestOfOutput());
    EXPECT_EQ(program.Wait(), 0) << bench.Said();
    EXPECT_EQ(bench.Rows().size(), 1U);
}

TEST(Measure, SimulatedReadingsRepeatWithTheirSeed)
{
    const Bench bench({});
    std::vector<std::string> firstColumns;
    for (int turn = 1; turn <= 2; ++turn) {
        ChildProgram program =
            bench.Start({"measure", "--simulate", "--random-seed", "7", "--samples", "20", "--interval", "1",
                         "--speed", "1000", "--quiet", "--output", bench.Output()},
                        "errors.txt");
        EXPECT_EQ(program.Wait(), 0) << bench.Said();
        std::string columns;
        for (const std::string& row : bench.Rows())
            columns += row.substr(row.find(',')) + "\n"; // all but the time of day
        EXPECT_EQ(bench.Rows().size(), 20U);
        firstColumns.push_back(columns);
    }
    EXPECT_EQ(firstColumns[0], firstColumns[1]);
}

TEST(Measure, TellsBeforeTheRunThatTheFileCannotBeWritten)
{
    const Bench bench({});
    std::vector<std::string> outputs{bench.Folder().Path("absent/out.csv"), bench.Folder().Path(),
                                     "/dev/null"};
    for (const std::string& name : TriedCommandLine().impossibleNames)
        outputs.push_back(bench.Folder().Path(name));
    for (const std::string& output : outputs) {
        ChildProgram program = bench.Start(
            {"measure", "--simulate", "--samples", "65500", "--interval", "900", "--output", output},
            "errors.txt");
        EXPECT_EQ(program.Wait(), 1) << output;
        EXPECT_THAT(bench.Said(), testing::StartsWith("Data File can not create or save. ")) << output;
    }
}

TEST(Measure, AFailedSaveLosesNothing)
{
    const Bench bench({});
    const std::string folder = bench.Folder().Path("gone");
    std::filesystem::create_directory(folder);
    ChildProgram program = bench.Start({"measure", "--simulate", "--samples", "3", "--interval", "1",
                                        "--speed", "5", "--output", folder + "/out.csv"},
                                       "errors.txt");
    static_cast<void>(program.NextLine());
    std::filesystem::remove(folder); // while it measures
    static_cast<void>(program.RestOfOutput());
    EXPECT_EQ(program.Wait(), 1);
    const std::string said = bench.Said();
    EXPECT_THAT(said, HasSubstr("Data File can not create or save. " + TriedCommandLine().absentFolder));
    const std::string mark = "The readings were saved here instead: ";
    ASSERT_THAT(said, HasSubstr(mark));
    const std::string path = said.substr(said.find(mark) + mark.size());
    EXPECT_THAT(FileBytes(path.substr(0, path.find('\n'))), HasSubstr("\r\nData,3\r\n"));
}

TEST(Measure, NoReadingReplacesNoOlderMeasurement)
{
    const Bench bench({"--fault", "silent:D"});
    std::ofstream(bench.Output()) << "older";
    ChildProgram program =
        bench.Measure({"--samples", "3", "--interval", "1", "--speed", "20", "--give-up", "0.5"});
    static_cast<void>(program.RestOfOutput());
    EXPECT_EQ(program.Wait(), 1);
    EXPECT_EQ(FileBytes(bench.Output()), "older");
    EXPECT_THAT(bench.Said(), HasSubstr("No reading was taken; " + bench.Output() + " was left as it is."));
}

TEST(Measure, AReaderWhoDoesNotReadHoldsNothingUp)
{
    const Bench bench({});
    ChildProgram program = bench.Start({"measure", "--simulate", "--samples", "5000", "--interval", "1",
                                        "--speed", "5000", "--output", bench.Output()},
                                       "errors.txt");
    while (bench.Said().find("Saved: ") == std::string::npos) // its rows are more than a pipe holds
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(bench.Rows().size(), 5000U);
    program.Signal(SIGINT); // or it would wait for somebody who reads them
    EXPECT_EQ(program.Wait(), 0);
}

TEST(Measure, PrintsNothingIntoTheLine)
{
    const Bench bench({"--speed", "20", "--verbose"});
    // Without standard streams the port would be the first file that the program opens.
    const std::string command = std::string("exec ") + QUORVANE_CLI + " measure --port " + bench.Device() +
                                " --samples 2 --interval 1 --speed 20 --output '" + bench.Output() +
                                "' <&- >&- 2>&-";
    ChildProgram program("/bin/sh", {"-c", command}, bench.Folder().Path("errors.txt"),
                         {{"QUORVANE_HOME", bench.Folder().Path()}});
    EXPECT_EQ(program.Wait(), 0);
    EXPECT_EQ(bench.Rows().size(), 2U);
    EXPECT_THAT(FileBytes(bench.Folder().Path("instrument.txt")), testing::Not(HasSubstr("mg/m3")));
}

TEST(Measure, TellsWrongUsageInOneLineAndTheUsage)
{
    const Bench bench({});
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"measur"},
                                                      {"ports", "all"},
                                                      {"measure", "--simulate", "--samples", "0"}}) {
        ChildProgram program = bench.Start(arguments, "errors.txt");
        EXPECT_EQ(program.RestOfOutput(), "");
        EXPECT_EQ(program.Wait(), 2);
        EXPECT_TRUE(bench.Said().starts_with("quorvane-cli: "));
        EXPECT_THAT(bench.Said(), HasSubstr("\n\nUsage:\n"));
    }
    ChildProgram help = bench.Start({"--help"}, "errors.txt");
    EXPECT_THAT(help.RestOfOutput(), HasSubstr("--give-up SECONDS"));
    EXPECT_EQ(help.Wait(), 0);
}

TEST(Ports, AreListedWithTheReasonWhyOneCannotBeUsed)
{
    const Bench bench({});
    ChildProgram program(
        QUORVANE_CLI, {"ports"}, bench.Folder().Path("errors.txt"),
        {{"QUORVANE_COM2", bench.Device()}, {"QUORVANE_COM3", "/dev/null"}, {"LC_ALL", "C"}});
    const std::string printed = program.RestOfOutput();
    EXPECT_EQ(program.Wait(), 0);
    EXPECT_THAT(printed, HasSubstr("COM2    " + bench.Device()));
    EXPECT_THAT(printed, testing::ContainsRegex("COM2 .*can be used"));
    EXPECT_THAT(printed, testing::ContainsRegex("COM3 .*does not answer as a serial line"));
    EXPECT_THAT(printed, testing::ContainsRegex("COM5 .*/dev/ttyUSB0"));
    EXPECT_THAT(printed, testing::ContainsRegex("COM15 .*QUORVANE_COM15 can name one"));
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 15);
}

} // namespace
} // namespace quorvane
