#include "files/SaveCommand.h"

#include "tests/support/FilesWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

class SaveCommandTest : public testing::Test, protected FilesWorld {
protected:
    SaveCommandTest()
    {
        arrays.Create(10); // planned; stopped after two
        arrays.MeasureTime = {"", "23:59:59", "00:00:00"};
        arrays.CountValue = {0, 4, 5};
        arrays.ConcValue = {0, 0.5, 1};
        arrays.DerivedValueA = {0, 0.25, 0.75};
        arrays.DerivedValueB = {0, 0.125, 0.375};
        arrays.IntegratedCount = {0, 4, 9};
        arrays.IntegratedConc = {0, 0.5, 1.5};
        arrays.ExtraField = {"", "1.2", "9.9"};
        state.SampleCount = 2;
        state.TotalSamples = 10;
        state.DataPresent = 1;
        state.LanguageOffset = 10000;
        clock.now = std::chrono::local_days{2024y / 3 / 5} + 8h;
        prompts.saveNames = {"/data/run.csv", "/data/run.csv"};
    }

    SaveCommand command{state, arrays, {store, codePage, locale, clock, prompts, texts, {2, 0, 2}}};
};

TEST_F(SaveCommandTest, RunIsSavedAsItsUserWritesTextsAndNumbers)
{
    locale.shortDateFormat = "d. 'M\u00e4r' yyyy"; // today's date, in the user's code page
    locale.decimalSign = ","; // the separator is a comma all the same: that is the format

    EXPECT_EQ(command.SaveMeasurement(), SaveResult::Saved);

    EXPECT_EQ(state.DataSaved, 1);
    EXPECT_TRUE(prompts.messages.empty());
    const std::string& file = store.files.at("/data/run.csv");
    EXPECT_THAT(file,
                testing::StartsWith("Program Ver.,Quorvane_Ver.2020\r\nDate,5. M\xe4r 2024\r\nData,2\r\n"
                                    "K Factor,0,0012\r\nTime,"));
    EXPECT_THAT(file, testing::EndsWith("\r\n23:59:59,4,0,5,0,25,0,125,4,0,5\r\n"
                                        "00:00:00,5,1,0,75,0,375,9,1,5\r\n"));
}

TEST_F(SaveCommandTest, DialogOffersCsvFilesAndAnEmptyName)
{
    command.SaveMeasurement();
    state.LanguageOffset = 0;
    command.SaveMeasurement();

    ASSERT_EQ(prompts.saveQuestions.size(), 2U);
    const SaveQuestion& question = prompts.saveQuestions[0];
    EXPECT_EQ(question.filter, "All Files (*.*)|*.*|CSV FILE (*.csv)|*.CSV|");
    EXPECT_EQ(question.filterIndex, 2);
    EXPECT_TRUE(question.overwritePrompt);
    EXPECT_EQ(question.defaultName, "");
    EXPECT_EQ(prompts.saveQuestions[1].filter, "すべてのファイル (*.*)|*.*|CSV FILE (*.csv)|*.CSV|");
}

TEST_F(SaveCommandTest, NothingIsWrittenWithoutANameAndAFinishedRun)
{
    prompts.saveNames.push_front(std::nullopt);
    EXPECT_EQ(command.SaveMeasurement(), SaveResult::Cancelled);
    prompts.whileOpen = [this] { state.DataPresent = 0; };
    EXPECT_EQ(command.SaveMeasurement(), SaveResult::NothingToSave)
        << "a run began while the dialog was open";
    EXPECT_EQ(command.SaveMeasurement(), SaveResult::NothingToSave);
    EXPECT_EQ(prompts.saveQuestions.size(), 2U) << "without a run nothing is asked";
    EXPECT_EQ(store.replaceCalls, 0);
    EXPECT_EQ(state.DataSaved, 0);
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(SaveCommandTest, FailureIsToldWithItsReasonAndTheRunStaysUnsaved)
{
    store.files["/data/run.csv"] = "old";
    store.replaceFault = FileFault{FileFaultKind::NoSpace, "No space left on device"};
    EXPECT_EQ(command.SaveTo("/data/run.csv").value().kind, FileFaultKind::NoSpace);
    EXPECT_TRUE(prompts.messages.empty()) << "only the dialog's command speaks";

    EXPECT_EQ(command.SaveMeasurement(), SaveResult::Failed);
    store.replaceFault->systemReason.clear();
    prompts.saveNames.push_back("/data/run.csv");
    EXPECT_EQ(command.SaveMeasurement(), SaveResult::Failed);

    EXPECT_EQ(state.DataSaved, 0);
    EXPECT_EQ(state.DataPresent, 1);
    EXPECT_EQ(store.files["/data/run.csv"], "old");
    ASSERT_EQ(prompts.messages.size(), 2U);
    const Message& message = prompts.messages[0];
    EXPECT_EQ(message.text, "Data File can not create or save.\r\nNo space left on device");
    EXPECT_EQ(message.icon, Icon::Critical);
    EXPECT_EQ(message.titleId, 101);
    EXPECT_EQ(message.buttons, Buttons::Ok);
    EXPECT_THAT(prompts.messages[1].text, testing::EndsWith("\r\nThere is no space left. Make room there or "
                                                            "choose another place."));
    store.replaceFault.reset();
    EXPECT_EQ(command.SaveMeasurement(), SaveResult::Saved) << "another try";
    EXPECT_EQ(state.DataSaved, 1);
}

TEST_F(SaveCommandTest, RescueTakesTheFirstFolderAndReplacesNothing)
{
    const std::string folders[] = {"", "/home", "/tmp"};
    const auto first = command.Rescue(folders);
    const auto second = command.Rescue(folders);
    ASSERT_TRUE(first && second);
    EXPECT_TRUE(first->starts_with("/home") && first->ends_with("Quorvane-20240305-080000.csv")) << *first;
    EXPECT_TRUE(second->ends_with("Quorvane-20240305-080000-2.csv")) << *second;
    EXPECT_EQ(store.files.size(), 2U);
    store.replaceFault = FileFault{};
    EXPECT_FALSE(command.Rescue(folders));
}

TEST_F(SaveCommandTest, RunWithoutReadingsIsAFileOfHeadings)
{
    arrays = {}; // not even index 1 exists
    state.SampleCount = 0;
    EXPECT_FALSE(command.SaveTo("/data/run.csv"));
    EXPECT_THAT(store.files["/data/run.csv"], testing::HasSubstr("Data,0\r\nK Factor,0\r\nTime,"));
}

} // namespace
} // namespace quorvane
