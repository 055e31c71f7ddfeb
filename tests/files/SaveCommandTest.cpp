#include "files/SaveCommand.h"

#include "tests/support/FakeCodePage.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/MemoryFileStore.h"
#include "tests/support/ScriptedPrompts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

class SaveCommandTest : public testing::Test {
protected:
    SaveCommandTest()
    {
        arrays.Create(10); // planned; stopped after two
        for (const std::size_t i : {1U, 2U}) {
            arrays.MeasureTime[i] = i == 1 ? "23:59:59" : "00:00:00";
            arrays.CountValue[i] = 4;
            arrays.ConcValue[i] = 0.5;
            arrays.DerivedValueA[i] = 0.5;
            arrays.DerivedValueB[i] = 0.25;
            arrays.IntegratedCount[i] = static_cast<double>(4 * i);
            arrays.IntegratedConc[i] = 0.5 * static_cast<double>(i);
            arrays.ExtraField[i] = i == 1 ? "1.2" : "9.9";
        }
        state.SampleCount = 2;
        state.TotalSamples = 10;
        state.DataPresent = 1;
        clock.now = std::chrono::local_days{2024y / 3 / 5} + 8h;
    }

    ApplicationState state;
    MeasurementArrays arrays;
    MemoryFileStore store;
    FakeCodePage codePage;
    FixedLocale locale;
    FixedClock clock;
    ScriptedPrompts prompts;
    StringTable table{TableLanguage::Japanese};
    Texts texts{table, state};
    SaveCommand command{
        state,
        arrays,
        {store, codePage, locale, clock, prompts, texts, {.major = 2, .minor = 0, .revision = 2}}};
};

TEST_F(SaveCommandTest, RunIsSavedUnderTheChosenNameWithTheDateOfSaving)
{
    prompts.saveNames = {"/data/run.csv"};
    locale.shortDateFormat = "M/d/yyyy";
    locale.decimalSign = ",";

    EXPECT_EQ(command.SaveMeasurement(), SaveResult::Saved);

    EXPECT_EQ(state.DataSaved, 1);
    EXPECT_TRUE(prompts.messages.empty());
    const std::string& file = store.files.at("/data/run.csv");
    EXPECT_THAT(file, testing::StartsWith("Program Ver.,Quorvane_Ver.2020\r\nDate,3/5/2024\r\nData,2\r\n"
                                          "K Factor,0,0012\r\nTime,"));
    EXPECT_THAT(file, testing::HasSubstr("(STEL)"));
    EXPECT_THAT(file,
                testing::EndsWith("\r\n23:59:59,4,0,5,0,5,0,25,4,0,5\r\n00:00:00,4,0,5,0,5,0,25,8,1,0\r\n"));
}

TEST_F(SaveCommandTest, DialogOffersCsvFilesAndAnEmptyName)
{
    command.SaveMeasurement();
    state.LanguageOffset = 10000;
    command.SaveMeasurement();

    ASSERT_EQ(prompts.saveQuestions.size(), 2U);
    const SaveQuestion& question = prompts.saveQuestions[1];
    EXPECT_EQ(question.filter, "All Files (*.*)|*.*|CSV FILE (*.csv)|*.CSV|");
    EXPECT_EQ(question.filterIndex, 2);
    EXPECT_TRUE(question.overwritePrompt);
    EXPECT_EQ(question.defaultName, "");
    EXPECT_EQ(prompts.saveQuestions[0].filter,
              "\u3059\u3079\u3066\u306e\u30d5\u30a1\u30a4\u30eb (*.*)|*.*|CSV FILE (*.csv)|*.CSV|");
}

TEST_F(SaveCommandTest, WithoutAFinishedRunNothingIsAsked)
{
    state.DataPresent = 0;
    prompts.saveNames = {"/data/run.csv"};
    EXPECT_EQ(command.SaveMeasurement(), SaveResult::NothingToSave);
    EXPECT_TRUE(prompts.saveQuestions.empty());
    EXPECT_TRUE(store.files.empty());
    EXPECT_EQ(state.DataSaved, 0);
}

TEST_F(SaveCommandTest, CancellingWritesNothing)
{
    prompts.saveNames = {std::nullopt};
    EXPECT_EQ(command.SaveMeasurement(), SaveResult::Cancelled);
    EXPECT_EQ(store.replaceCalls, 0);
    EXPECT_EQ(state.DataSaved, 0);
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(SaveCommandTest, RunThatBeganWhileTheDialogWasOpenIsNotSaved)
{
    prompts.saveNames = {"/data/run.csv"};
    prompts.whileOpen = [this] { state.DataPresent = 0; };
    EXPECT_EQ(command.SaveMeasurement(), SaveResult::NothingToSave);
    EXPECT_EQ(store.replaceCalls, 0);
    EXPECT_EQ(state.DataSaved, 0);
}

TEST_F(SaveCommandTest, FailureIsToldWithTheSystemsReasonAndTheRunStaysUnsaved)
{
    state.LanguageOffset = 10000;
    store.files["/data/run.csv"] = "old";
    store.replaceFault = FileFault{FileFaultKind::NoSpace, "No space left on device"};
    prompts.saveNames = {"/data/run.csv", "/data/run.csv"};

    EXPECT_EQ(command.SaveMeasurement(), SaveResult::Failed);

    EXPECT_EQ(state.DataSaved, 0);
    EXPECT_EQ(state.DataPresent, 1);
    EXPECT_EQ(store.files["/data/run.csv"], "old");
    ASSERT_EQ(prompts.messages.size(), 1U);
    const Message& message = prompts.messages[0];
    EXPECT_EQ(message.text, "Data File can not create or save.\r\nNo space left on device");
    EXPECT_EQ(message.icon, Icon::Critical);
    EXPECT_EQ(message.titleId, 101);
    EXPECT_EQ(message.buttons, Buttons::Ok);

    store.replaceFault.reset();
    EXPECT_EQ(command.SaveMeasurement(), SaveResult::Saved) << "the second try";
    EXPECT_EQ(state.DataSaved, 1);
}

TEST_F(SaveCommandTest, FailureWithoutAReasonIsExplainedByItsKind)
{
    state.LanguageOffset = 10000;
    store.replaceFault = FileFault{FileFaultKind::NoSpace, ""};
    prompts.saveNames = {"/data/run.csv"};
    command.SaveMeasurement();
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text, "Data File can not create or save.\r\nThere is no space left. Make "
                                        "room there or choose another place.");
}

TEST_F(SaveCommandTest, RunWithoutReadingsIsAFileOfHeadings)
{
    arrays = {}; // not even index 1 exists
    state.SampleCount = 0;
    prompts.saveNames = {"/data/run.csv"};
    EXPECT_EQ(command.SaveMeasurement(), SaveResult::Saved);
    EXPECT_THAT(store.files["/data/run.csv"], testing::HasSubstr("Data,0\r\nK Factor,0\r\nTime,"));
}

TEST_F(SaveCommandTest, SavingToANameAsksNothing)
{
    EXPECT_FALSE(command.SaveTo("/data/run.csv"));
    EXPECT_EQ(state.DataSaved, 1);

    state.DataSaved = 0;
    store.replaceFault = FileFault{FileFaultKind::NoPermission, "denied"};
    const auto fault = command.SaveTo("/data/run.csv");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->kind, FileFaultKind::NoPermission);
    EXPECT_EQ(state.DataSaved, 0);
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_TRUE(prompts.saveQuestions.empty());
}

} // namespace
} // namespace quorvane
