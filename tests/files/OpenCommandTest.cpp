#include "files/OpenCommand.h"

#include "files/SaveCommand.h"
#include "measure/ReadingText.h"
#include "tests/files/Golden.h"
#include "tests/support/FilesWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

class OpenCommandTest : public testing::Test, protected FilesWorld {
protected:
    OpenCommandTest()
    {
        state.LanguageOffset = 10000;
        state.DefaultFolder = "/data";
        state.TotalSamples = 10;
        state.SampleCount = 3;
        arrays.Create(3);
        clock.now = std::chrono::local_days{2025y / 7 / 1} + 8h;
        store.files["full"] = GoldenBytes("data-full.csv");
        store.files["short"] = Replaced(GoldenBytes("data-short.csv"), "\r\n,1E-06", "\r\n23:59:59,1E-06");
    }

    static std::string Replaced(std::string text, const std::string& what, const std::string& instead)
    {
        return text.replace(text.find(what), what.size(), instead);
    }
    OpenResult Open(const std::string& path)
    {
        shown = 0;
        return command.OpenPath(path, [this](const std::string&) {
            ++shown;
            toldBefore = prompts.messages.size();
        });
    }

    OpenCommand command{state, arrays, {store, codePage, locale, clock, prompts, texts}};
    SaveCommand save{state, arrays, {store, codePage, locale, clock, prompts, texts, {2, 0, 2}}};
    int shown = 0;
    std::size_t toldBefore = 0;
};

TEST_F(OpenCommandTest, AsksForACsvFileAndPutsItsReadingsInPlace)
{
    prompts.openNames = {std::nullopt, "short"};
    EXPECT_EQ(command.OpenDataFile([](const std::string&) { FAIL(); }), OpenResult::Cancelled);
    EXPECT_EQ(command.OpenDataFile([&](const std::string&) { shown = state.SampleCount; }),
              OpenResult::Opened);

    EXPECT_EQ(prompts.openQuestions[0].filter, "All Files (*.*)|*.*|CSV FILE (*.csv)|*.CSV|");
    EXPECT_EQ(prompts.openQuestions[0].filterIndex, 2);
    EXPECT_EQ(prompts.openQuestions[0].folder, "/data");
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_EQ(shown, 5) << "whoever looks finds the state of the new readings";
    EXPECT_EQ(arrays.MeasureTime.size(), 6U);
    EXPECT_EQ(arrays.Moment[5], std::chrono::local_days{2024y / 3 / 1});
    EXPECT_EQ(state.DataPresent, 1);
    EXPECT_EQ(state.DataSaved, 1);
    EXPECT_EQ(state.TotalSamples, 10);
    EXPECT_EQ(ReadingText(arrays, 1, ReadingColumn::Twa, "."), "");
    EXPECT_EQ(ReadingText(arrays, 1, ReadingColumn::Stel, "."), "");
    EXPECT_EQ(ReadingText(arrays, 1, ReadingColumn::IntegratedConc, "."), "1.25");
}

TEST_F(OpenCommandTest, TellsWhyAFileIsNotOpenedAndLeavesTheReadings)
{
    state.DataPresent = 1; // and not saved
    const std::string large(kLargestDataFile + 1, ',');
    const std::string full = GoldenBytes("data-full.csv");
    struct Row {
        std::string_view what;
        std::string bytes;
        std::optional<FileFault> readFault;
        std::string reason;
    };
    const Row rows[] = {
        {"other", "x", {}, "This is not a data file of this program."},
        {"line", Replaced(full, "09:30:02,0", "09:30:02,-1"), {}, "Line 7 of the file cannot be read."},
        {"cut off", full.substr(0, 400), {}, "The file is not complete: it ends after reading 2 of 5."},
        {"longer", full + "x", {}, "The file holds more than the 5 readings that it announces."},
        {"large, and not even read", large, FileFault{FileFaultKind::Other, "read"},
         "The file is too large. A data file holds 65500 readings at most."},
        {"system", full, FileFault{FileFaultKind::NoPermission, "Permission denied"}, "Permission denied"},
        {"no words", full, FileFault{FileFaultKind::InUse, ""},
         "Another program is using the file. Close it there and try again."},
    };
    for (const Row& row : rows) {
        store.files["x"] = row.bytes;
        store.readFault = row.readFault;
        EXPECT_EQ(Open("x"), OpenResult::Failed) << row.what;
        EXPECT_EQ(prompts.messages.back().text, "Data File can not load.\r\n" + row.reason) << row.what;
        EXPECT_EQ(prompts.messages.back().icon, Icon::Critical);
        EXPECT_EQ(shown, 0) << row.what;
    }
    EXPECT_EQ(prompts.messages.size(), std::size(rows));
    EXPECT_EQ(arrays.MeasureTime.size(), 4U);
    EXPECT_EQ(state.SampleCount, 3);
    EXPECT_EQ(state.DataSaved, 0);
}

TEST_F(OpenCommandTest, BadDatesAndTimesAreToldOnceTheReadingsAreShown)
{
    const std::string date = "There is a problem in the date data. Graphical representation is not possible.";
    const std::string time = "There is a problem in the time data. Graphical representation is not possible.";
    const std::string noTime = GoldenBytes("data-full.csv"); // one of them is empty
    store.files["time"] = noTime;
    store.files["both"] = Replaced(noTime, "2024/02/29", "2023/02/29");
    for (const auto& [path, text] : {std::pair("time", time), std::pair("both", date)}) {
        prompts.messages.clear();
        EXPECT_EQ(Open(path), OpenResult::OpenedUndated);
        ASSERT_EQ(prompts.messages.size(), 1U);
        EXPECT_EQ(prompts.messages[0].text, text);
        EXPECT_EQ(prompts.messages[0].icon, Icon::Exclamation);
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(toldBefore, 0U);
        EXPECT_FALSE(arrays.Dated);
        EXPECT_EQ(state.DataPresent, 1);
    }
}

TEST_F(OpenCommandTest, WhatWasOpenedIsSavedAsItWas)
{
    const std::string undated = Replaced(GoldenBytes("data-full.csv"), "2024/02/29", "");
    store.files["undated"] = undated;
    store.files["page"] = Replaced(undated, "Date,", "Date,29. M\xE4r 2024");
    store.files["utf8"] = "\xEF\xBB\xBF" + Replaced(undated, "Date,", "Date,29. M\xC3\xA4r 2024");
    for (const auto& [path, saved] : {std::pair("short", "short"), std::pair("undated", "undated"),
                                      std::pair("page", "page"), std::pair("utf8", "page")}) {
        EXPECT_NE(Open(path), OpenResult::Failed) << path;
        EXPECT_FALSE(save.SaveTo("saved"));
        EXPECT_EQ(store.files["saved"], store.files[saved]) << path;
    }
}

} // namespace
} // namespace quorvane
