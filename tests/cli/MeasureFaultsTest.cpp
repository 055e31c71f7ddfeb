#include "tests/support/Bench.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using testing::HasSubstr;

/// What the operator is left with when the instrument has a fault. What the run makes of each fault is tried
/// without a line; these are the ones that only a line and its time can show.
struct Row {
    std::string name;
    std::string fault; ///< of the simulated instrument
    std::string speed; ///< of both sides
    int status;        ///< of the program
    std::string said;  ///< a part of what it says
    std::string log;   ///< a part of the error log; empty: no log
    std::size_t rows;  ///< readings that are saved
};

class MeasureFaults : public testing::TestWithParam<Row> {};

TEST_P(MeasureFaults, EndOrGoOnWithTheRightRecord)
{
    const Row& row = GetParam();
    const Bench bench({"--fault", row.fault, "--speed", row.speed});
    ChildProgram program = bench.Measure(
        {"--samples", "5", "--interval", "1", "--speed", row.speed, "--give-up", "1.5", "--quiet"});
    EXPECT_EQ(program.Wait(), row.status) << bench.Said();
    EXPECT_THAT(bench.Said(), HasSubstr(row.said));
    EXPECT_EQ(bench.Rows().size(), row.rows);
    if (row.log.empty()) {
        EXPECT_EQ(bench.ErrorLog(), "");
    } else {
        EXPECT_THAT(bench.ErrorLog(), HasSubstr(row.log));
    }
}

INSTANTIATE_TEST_SUITE_P(
    OnTheLine, MeasureFaults,
    testing::Values(Row{"Silent", "silent", "20", 1, "RS232C ERROR.", ",N Command,, 101\r\n", 0},
                    Row{"SilentAfterD", "silent:D", "20", 0, "No data from the instrument for 1.5 s", "", 0},
                    Row{"LineInTwoPieces", "split:20,40", "2", 0, "Saved", "", 5},
                    Row{"NoLineEnd", "no-line-end:2", "1", 1, "RS232C ERROR.", ",D Command Data Read,", 1},
                    Row{"HangUp", "hang-up:2", "2", 0, "No data from the instrument", ",D Command Data Read,",
                        2}),
    [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

TEST(MeasurePlug, IsPulledTwiceAndTheRunGoesOn)
{
    const ScratchFolder place;
    const std::string speed = "10"; // a line each 100 ms; 12 of them, then 0.3 s without the device
    std::vector<std::string> instrument{"--verbose", "--speed", speed, "--fault", "unplug:12,300"};
    std::string port = TriedCommandLine().port; // a device that comes back needs a name of its own
    if (port.empty()) {
        port = place.Path("line");
        instrument.insert(instrument.end(), {"--link", port});
    }
    const Bench bench(instrument);
    ChildProgram program = bench.Start({"measure", "--port", port, "--output", bench.Output(), "--samples",
                                        "25", "--interval", "1", "--speed", speed, "--quiet"},
                                       "errors.txt");
    EXPECT_EQ(program.Wait(), 0) << bench.Said();

    const auto count = [](const std::string& text, const std::string& part) {
        std::size_t found = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
            ++found;
        return found;
    };
    const std::string traffic = FileBytes(bench.Folder().Path("instrument.txt"));
    EXPECT_EQ(count(traffic, "received  D\\r\\n"), 1U) << traffic;
    const std::size_t losses = count(bench.Said(), "Port lost since ");
    EXPECT_GE(losses, 2U) << "11 lines at most between two pulls";
    EXPECT_EQ(count(bench.Said(), "; waiting for " + port), losses) << bench.Said();
    EXPECT_EQ(count(bench.Said(), "Port back at "), losses) << bench.Said();
    EXPECT_EQ(count(bench.ErrorLog(), ",D Command Data Read,, 0\r\n"), losses) << bench.ErrorLog();

    const std::vector<std::string> rows = bench.Rows();
    EXPECT_EQ(rows.size(), 25U);
    EXPECT_EQ(std::ranges::adjacent_find(rows, std::ranges::greater_equal{}), rows.end())
        << "the times of the instrument rise";
    for (const std::string& row : rows)
        EXPECT_EQ(std::count(row.begin(), row.end(), ','), 6) << "a whole line: " << row;
}

} // namespace
} // namespace quorvane
