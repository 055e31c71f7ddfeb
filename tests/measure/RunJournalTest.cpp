#include "measure/RunJournal.h"

#include "files/AppFiles.h"
#include "files/SaveCommand.h"
#include "instrument/DateTimeText.h"
#include "measure/JournalRecovery.h"
#include "tests/support/FakeJournals.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RunWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr LocalMoment kStart = std::chrono::local_days{2024y / 5 / 1} + 23h + 52min;

/// A program with an instrument that keeps journals, as long as it lives.
struct JournalWorld : InstrumentWorld {
    explicit JournalWorld(FakeJournals& journals)
        : InstrumentWorld(kStart), journal(state, state, arrays, journals)
    {
        RunServices services = Services([] { return 0.5; });
        services.journal = &journal;
        run.emplace(
            state, arrays, services, [] {}, listener);
    }
    [[nodiscard]] std::string SavedFile()
    {
        FixedClock oneDay; // the date of saving is not the run's
        SaveCommand save(state, arrays, {files, codePage, locale, oneDay, prompts, texts, {2, 0, 2}});
        EXPECT_FALSE(save.SaveTo("saved.csv"));
        return files.files["saved.csv"];
    }

    RunJournal journal;
    RunListener listener;
    std::optional<MeasurementRun> run;
};

/// Lines of a shift, a second apart: of three and of four fields, and one that nobody can read.
std::vector<std::string> ShiftLines(int count)
{
    std::vector<std::string> lines;
    for (int i = 1; i <= count; ++i) {
        std::string line = InstrumentTimeText(kStart + std::chrono::seconds(i)) + ";00000" +
                           std::to_string(10 + i * 7 % 89) + ";00" + std::to_string(i * 13 % 10) + "." +
                           std::to_string(100 + i * 37 % 899);
        line += i % 3 == 0 ? "\r\n" : ";1." + std::to_string(i % 10) + "\r\n";
        lines.push_back(i == 700 ? "\xFFgarbled \\ \"beyond recognition\"\r\n" : line);
    }
    return lines;
}

TEST(RunJournal, GivesTheFileThatTheRunWouldHaveGiven)
{
    constexpr int kReadings = 1000; // over midnight, and more than the 900 of the 15 minutes
    FakeJournals journals;
    JournalWorld ended(journals);
    ended.state.TotalSamples = kReadings + 500;
    ended.lines = ShiftLines(kReadings);
    ended.listener.onSample = [&](int sample) {
        if (sample == kReadings)
            ended.run->Stop();
    };
    ASSERT_EQ(ended.run->Start(), RunResult::Stopped);
    EXPECT_EQ(journals.atHand, FileInFolder("app", "Run 2024-05-01 23-52-02.journal"));
    journals.Release(); // it ended there

    JournalWorld next(journals);
    next.state.SamplingSeconds = 17;
    next.state.TotalSamples = 5;
    JournalRecovery recovery(next.state, next.arrays, journals, next.journal);
    const auto run = recovery.Next();
    ASSERT_TRUE(run);
    EXPECT_EQ(run->readings, kReadings);
    EXPECT_EQ(run->start, kStart + 2s) << "behind the start exchange";
    EXPECT_EQ(run->last, ended.arrays.Moment[kReadings]);
    EXPECT_EQ(run->damaged, 0);
    recovery.Restore();
    EXPECT_TRUE(next.SavedFile() == ended.SavedFile());
    EXPECT_EQ(std::ranges::count(next.SavedFile(), '\n'), 5 + kReadings);
    EXPECT_EQ(next.state.SamplingSeconds, 17) << "the settings are not the run's";
    EXPECT_EQ(next.state.TotalSamples, 5);
    ended.arrays.Moment.resize(kReadings + 1); // planned were more
    EXPECT_TRUE(next.arrays.Moment == ended.arrays.Moment);

    EXPECT_FALSE(journals.atHand.empty()) << "until the readings are settled";
    next.journal.Settle();
    EXPECT_THAT(journals.LeftOver("app"), IsEmpty());
    EXPECT_TRUE(journals.files.contains(KeptJournal(next.state)));
}

/// Readings in arrays, handed over by a test.
struct HandedOver {
    HandedOver()
    {
        state.AppPath = "app";
        state.SamplingSeconds = 2;
        state.TotalSamples = 10;
        arrays.Create(10);
        for (std::size_t i = 1; i <= 10; ++i)
            arrays.ReplyLine[i] = std::to_string(i);
    }
    [[nodiscard]] JournalContents Contents() const { return ReadJournal(journals.files.at(journals.atHand)); }
    [[nodiscard]] std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        for (const JournalReading& reading : Contents().readings)
            lines.push_back(reading.line);
        return lines;
    }

    ApplicationState state;
    MeasurementArrays arrays;
    FakeJournals journals;
    RunJournal journal{state, state, arrays, journals};
};

TEST(RunJournal, OffersAgainWhatWasNotTaken)
{
    HandedOver with;
    with.arrays.Gaps = {{2, GapKind::PortLost, kStart, kStart}, {4, GapKind::ClockSet, kStart, kStart}};
    with.journals.room = 0; // not even the head
    with.journal.Begin(kStart, true);
    with.journal.Taken(1);
    with.journals.room = 2;
    with.journal.Look();
    EXPECT_THAT(with.Lines(), ElementsAre("1"));
    with.journal.Taken(3);
    with.journals.room = 1; // the gap before the second
    with.journal.Look();
    EXPECT_THAT(with.Lines(), ElementsAre("1"));
    with.journals.room = 100;
    with.journal.Look();
    EXPECT_THAT(with.Lines(), ElementsAre("1", "2", "3"));
    EXPECT_EQ(with.Contents().gaps.size(), 1U);
    with.journal.End();
    with.journal.Look();
    EXPECT_EQ(with.Contents().gaps, with.arrays.Gaps);
    EXPECT_EQ(with.Contents().damaged, 0) << "nothing twice";

    with.journals.files.clear(); // somebody has removed it
    with.journal.Look();
    EXPECT_THAT(with.Lines(), ElementsAre("1", "2", "3"));
    EXPECT_EQ(with.Contents().gaps, with.arrays.Gaps);
}

TEST(RunJournal, OneEarlierGenerationIsKept)
{
    HandedOver with;
    const std::string kept = KeptJournal(with.state);
    with.journal.Settle(); // nothing yet
    with.journal.Begin(kStart, false);
    with.journal.Taken(2);
    const std::string first = with.journals.files.at(with.journals.atHand);
    with.journal.Begin(kStart + 1h, false); // replaces the readings
    EXPECT_EQ(with.journals.files[kept], first);
    with.journal.Begin(kStart + 2h, false);
    EXPECT_EQ(with.journals.files[kept], first) << "not by one without a reading";
    with.journal.Taken(1);
    with.journal.End();
    const std::string third = with.journals.files.at(with.journals.atHand);
    with.journal.Settle();
    with.journal.Settle();
    with.journal.Look();
    EXPECT_THAT(with.journals.files, ElementsAre(std::pair(kept, third)));
}

TEST(JournalRecovery, OffersEachRunOnceNewestFirst)
{
    HandedOver with;
    const auto path = [](const std::string& name) { return FileInFolder("app", name + ".journal"); };
    const auto journal = [](LocalMoment start, int readings) {
        const JournalPen pen({start, 2, 10, true, "1"});
        std::string bytes = pen.Head();
        for (int i = 1; i <= readings; ++i)
            bytes += pen.Reading(i, start + 5min, "x");
        return bytes;
    };
    with.journals.files = {{path("a"), journal(kStart, 1)},
                           {path("b"), journal(kStart + 1h, 2) + "R bad\n"},
                           {path("c"), journal(kStart + 2h, 0)},
                           {path("d"), "something else\n"},
                           {path("e"), journal(kStart + 3h, 1)},
                           {path("f"), journal(kStart + 4h, 3)},
                           {path("g"), journal(kStart + 4h, 0) + "R bad\n"}};
    with.journals.heldByAnother = path("e");
    JournalRecovery recovery(with.state, with.arrays, with.journals, with.journal);

    with.journal.Begin(kStart - 1h, false); // a run of this session that took nothing
    recovery.Restore();                     // of nothing
    EXPECT_EQ(with.state.DataPresent, 0);
    const auto newest = recovery.Next();
    ASSERT_TRUE(newest);
    EXPECT_EQ(newest->path, path("f"));
    EXPECT_TRUE(newest->simulated);
    recovery.Leave();
    const auto second = recovery.Next();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->path, path("b"));
    EXPECT_EQ(second->damaged, 1);
    recovery.Discard();
    EXPECT_TRUE(with.journals.files.contains(KeptJournal(with.state)));
    EXPECT_EQ(recovery.Next().value_or(LeftOverRun()).path, path("a"));
    recovery.Restore();
    EXPECT_EQ(with.state.DataPresent, 1);
    EXPECT_EQ(with.arrays.Moment[1], kStart + 5min) << "as it was recorded, whatever the line says";
    with.journal.Settle();
    EXPECT_EQ(with.journals.files[KeptJournal(with.state)], journal(kStart, 1));
    EXPECT_FALSE(recovery.Next());
    for (const std::string& left :
         {path("d") + ".unreadable", path("e"), path("f"), path("g") + ".unreadable"})
        EXPECT_TRUE(with.journals.files.contains(left)) << left;
    ASSERT_EQ(recovery.Unreadable().size(), 2U);
    EXPECT_EQ(recovery.Unreadable()[1].path, path("d") + ".unreadable");
    EXPECT_FALSE(with.journals.files.contains(path("c"))) << "it has no reading";
}

} // namespace
} // namespace quorvane
