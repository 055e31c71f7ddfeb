#include "cli/RecoverOptions.h"
#include "measure/JournalText.h"
#include "tests/support/Bench.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace quorvane {
namespace {

using testing::HasSubstr;

/// Time, count and sum of the counts, of a row as it is shown, or with commas.
std::string Essence(std::string row, std::size_t timeColumn)
{
    std::ranges::replace(row, ',', ' ');
    std::istringstream stream(row);
    const std::vector<std::string> fields{std::istream_iterator<std::string>(stream), {}};
    return fields.at(timeColumn) + ' ' + fields.at(timeColumn + 1) + ' ' + fields.at(timeColumn + 5);
}

/// Runs `quorvane-cli recover` on a bench. @return its exit status
int Recover(const Bench& bench, std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), "recover");
    return bench.Start(arguments, "errors.txt").Wait();
}

TEST(Recover, BringsBackWhatAKilledRunHadTaken)
{
    const Bench bench({"--speed", "40"});
    ChildProgram killed = bench.Measure({"--samples", "10000", "--interval", "1", "--speed", "40"});
    static_cast<void>(killed.NextLine()); // the heading
    std::vector<std::string> shown;
    while (shown.size() < 30) {
        shown.push_back(Essence(killed.NextLine(), 1));
        if (shown.size() == 20) {
            EXPECT_EQ(Recover(bench, {"--output", bench.Output()}), 1) << "that run is not left over";
        }
    }
    killed.Signal(SIGKILL);
    EXPECT_EQ(killed.Wait(), 128 + SIGKILL);
    std::istringstream rest(killed.RestOfOutput());
    for (std::string row; std::getline(rest, row) && !rest.eof();)
        shown.push_back(Essence(row, 1));

    EXPECT_EQ(bench
                  .Start({"measure", "--simulate", "--samples", "1", "--interval", "1", "--speed", "100",
                          "--output", bench.Folder().Path("other.csv")},
                         "errors.txt")
                  .Wait(),
              0);
    EXPECT_THAT(bench.Said(), HasSubstr("recover --output")) << "the next run tells of it";

    EXPECT_EQ(Recover(bench, {"--output", bench.Output()}), 0) << bench.Said();
    std::vector<std::string> saved;
    for (const std::string& row : bench.Rows())
        saved.push_back(Essence(row, 0));
    // One may be missing that was shown just before it was written, one be there that was not shown any more.
    ASSERT_GE(saved.size() + 1, shown.size());
    ASSERT_LE(saved.size(), shown.size() + 1);
    const std::size_t both = std::min(saved.size(), shown.size());
    EXPECT_TRUE(std::equal(saved.begin(), saved.begin() + static_cast<std::ptrdiff_t>(both), shown.begin()));

    EXPECT_EQ(Recover(bench, {"--output", bench.Folder().Path("again.csv")}), 1);
    EXPECT_THAT(bench.Said(), HasSubstr("No run is left"));
    EXPECT_EQ(Recover(bench, {"--previous", "--output", bench.Folder().Path("again.csv")}), 0);
    EXPECT_EQ(FileBytes(bench.Folder().Path("again.csv")), FileBytes(bench.Output()));
}

TEST(Recover, TellsWhatItFindsAndTouchesNothingElse)
{
    const Bench bench({});
    const std::string journal = bench.Folder().Path("Run 1.journal");
    const JournalPen pen({LocalMoment(), 1, 10, true, "1.0.0"});
    const std::string whole = pen.Head() + pen.Reading(1, LocalMoment(), "0:00:00;1;1.5\r\n");
    const std::string noRun = "No run is left";
    struct Row {
        std::string journal;
        std::vector<std::string> arguments;
        int status;
        std::string said;
        bool stays;
    };
    const Row rows[] = {
        {"text\n", {"--output", bench.Output()}, 1, "is not a run's journal", true},
        {"QuorvaneJournal 2 \n", {"--list"}, 1, "newer version", true},
        {pen.Head(), {"--list"}, 1, noRun, false},
        {whole, {"--previous", "--output", bench.Output()}, 1, "No such file", true},
        {whole, {"--output", bench.Folder().Path("absent/x.csv")}, 1, "No such file", true},
        {whole, {"--journal", journal, "--output", journal}, 1, "can not create or save", true},
        {whole, {"--journal", bench.Folder().Path("errors.txt"), "--discard"}, 1, noRun, true},
        {whole + "bad\n", {"--list"}, 0, "", true},
        {whole, {"--discard"}, 0, "readings: 1, from", false},
        {whole, {"--journal", journal, "--output", bench.Output()}, 0, "SIMULATED", false},
    };
    for (const Row& row : rows) {
        std::ofstream(journal, std::ios::binary) << row.journal;
        EXPECT_EQ(Recover(bench, row.arguments), row.status) << bench.Said();
        EXPECT_THAT(bench.Said(), HasSubstr(row.said)) << row.journal;
        EXPECT_EQ(FileBytes(journal), row.stays ? row.journal : "") << row.said;
    }
    EXPECT_EQ(bench.Rows().size(), 1U);
}

TEST(RecoverOptions, RefusesWhatDoesNotGoTogether)
{
    for (const std::string line :
         {"", "--output x --list", "--discard --list", "--journal x", "--previous", "--list --journal x",
          "--discard --previous", "--output x --previous --journal y", "--output", "x"}) {
        std::istringstream stream(line);
        const std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
        RecoverOptions options;
        EXPECT_TRUE(ReadRecoverOptions(words, options)) << line;
    }
}

} // namespace
} // namespace quorvane
