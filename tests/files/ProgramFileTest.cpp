#include "files/FileProfile.h"
#include "files/ProgramFileCommand.h"
#include "tests/files/Golden.h"
#include "tests/support/FilesWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

class ProgramFileTest : public testing::Test, protected FilesWorld {
protected:
    ProgramFileTest()
    {
        state.LanguageOffset = 10000;
        state.DefaultFolder = "/data";
        SetProgram();
    }

    void SetProgram()
    {
        static_cast<InstrumentProgram&>(state) = {.ProgramMeasureCount = 30000,
                                                  .ProgramMeasureTimeHour = -1,
                                                  .ProgramMeasureHours = 12,
                                                  .ProgramMeasureMinutes = 34,
                                                  .ProgramStartDate = "29. M\u00e4r 2024",
                                                  .ProgramStartTime = "23:59:58",
                                                  .ProgramTotalTimeHour = 14,
                                                  .ProgramTotalHours = 1234.567890123456,
                                                  .ProgramTotalMinutes = 56};
    }
    [[nodiscard]] std::vector<double> Numbers() const
    {
        return {state.ProgramMeasureCount,   state.ProgramMeasureTimeHour, state.ProgramMeasureHours,
                state.ProgramMeasureMinutes, state.ProgramTotalTimeHour,   state.ProgramTotalHours,
                state.ProgramTotalMinutes};
    }
    [[nodiscard]] std::string StartText() const
    {
        return state.ProgramStartDate + "|" + state.ProgramStartTime;
    }

    FileProfile profile{store, codePage};
    ProgramSettingFile file{state, profile, {2, 0, 2}};
    ProgramFileCommand command{state, {store, profile, prompts, texts, {2, 0, 2}}};
};

TEST_F(ProgramFileTest, FileIsWrittenByteForByteAndReadBackWithoutTheMinutes)
{
    EXPECT_FALSE(file.SaveProgramSetting("p.ini"));
    EXPECT_EQ(store.files["p.ini"], GoldenBytes("program.ini"));

    static_cast<InstrumentProgram&>(state) = {};
    state.ProgramMeasureMinutes = 7;
    state.ProgramTotalMinutes = 8;
    file.OpenProgramSetting("p.ini");
    // No key holds the minutes: a loaded program keeps those of before. That is meant.
    EXPECT_THAT(Numbers(), testing::ElementsAre(30000, -1, 12, 7, 14, 1234.56789012346, 8));
    EXPECT_EQ(StartText(), "29. M\u00e4r 2024|23:59:58");
    EXPECT_EQ(file.OpenedVersion(), "Quorvane_Ver.2020");
}

TEST_F(ProgramFileTest, ValuesAreTakenAsTheyStandAndWhatIsMissingIsEmpty)
{
    store.files["p.ini"] = "[PROGRAM VER.]\nprogram ver.=Quorvane_Ver.9990\n[program setting]\n"
                           "Measure Number=70000 times\nMeasure Time_Minute=x\nMeasure StartDate=\"31/31\"\n"
                           "Measure TotalTime_Minute=-.5E1\n";
    file.OpenProgramSetting("p.ini"); // of another version, and out of every range: the dialog checks later
    EXPECT_THAT(Numbers(), testing::ElementsAre(70000, 0, 0, 34, 0, -5, 56));
    EXPECT_EQ(StartText(), "31/31|");
    EXPECT_EQ(file.OpenedVersion(), "Quorvane_Ver.9990");

    SetProgram();
    file.OpenProgramSetting("missing.ini");
    EXPECT_THAT(Numbers(), testing::ElementsAre(0, 0, 0, 34, 0, 0, 56));
    EXPECT_EQ(StartText(), "|");
}

TEST_F(ProgramFileTest, OperatorChoosesIniFilesInTheDataFolder)
{
    EXPECT_FALSE(command.SaveProgram());
    EXPECT_FALSE(command.OpenProgram());
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_TRUE(store.files.empty());

    store.files["p.ini"] = "; mine\r\n";
    prompts.saveNames = {"p.ini"};
    prompts.openNames = {"p.ini"};
    EXPECT_TRUE(command.SaveProgram());
    state.ProgramMeasureCount = 1;
    EXPECT_TRUE(command.OpenProgram());
    EXPECT_EQ(store.files["p.ini"], "; mine\r\n" + GoldenBytes("program.ini"));
    EXPECT_EQ(state.ProgramMeasureCount, 30000);
    EXPECT_TRUE(prompts.messages.empty());

    const auto& save = prompts.saveQuestions[0];
    const auto& open = prompts.openQuestions[0];
    EXPECT_EQ(save.filter, "All Files (*.*)|*.*|INI FILE (*.ini)|*.ini|");
    EXPECT_EQ(save.extensions, (std::vector<std::string>{"", "ini"}));
    EXPECT_TRUE(save.overwritePrompt);
    EXPECT_EQ(open.filter, save.filter);
    EXPECT_TRUE(save.filterIndex == 2 && open.filterIndex == 2);
    EXPECT_TRUE(save.folder == "/data" && open.folder == "/data");
}

TEST_F(ProgramFileTest, FailureIsToldAndChangesNothing)
{
    const std::string large((1U << 20U) + 1, ' ');
    const std::string noText("MZ\0", 3);
    const std::string tooLarge = "The file is too large to hold a measuring program.";
    struct Row {
        std::string_view what;
        bool saves;
        std::optional<std::string> bytes;
        std::optional<FileFault> readFault;
        std::optional<FileFault> replaceFault;
        std::string reason;
    };
    const FileFault denied = {FileFaultKind::NoPermission, "denied"};
    const FileFault full = {FileFaultKind::NoSpace, "full"};
    const Row rows[] = {
        {"no space", true, {}, {}, full, "full"},
        {"old file unreadable", true, "", denied, {}, "denied"},
        {"old file no text", true, noText, {}, {}, "The file is no plain text. Choose another file name."},
        {"old file large", true, large, {}, {}, tooLarge},
        {"unreadable", false, "", denied, {}, "denied"},
        {"missing", false, {}, {}, {}, "no such file"},
        {"large, and not even read", false, large, denied, {}, tooLarge},
    };
    for (const Row& row : rows) {
        store.files.clear();
        if (row.bytes)
            store.files["x"] = *row.bytes;
        store.readFault = row.readFault;
        store.replaceFault = row.replaceFault;
        const auto before = store.files;
        prompts.saveNames = prompts.openNames = {"x"};
        EXPECT_FALSE(row.saves ? command.SaveProgram() : command.OpenProgram()) << row.what;
        EXPECT_EQ(prompts.messages.back().text, std::string("The measuring program could not be ") +
                                                    (row.saves ? "saved" : "loaded") + ".\r\n" + row.reason)
            << row.what;
        EXPECT_EQ(prompts.messages.back().icon, Icon::Critical);
        EXPECT_EQ(store.files, before) << row.what;
        EXPECT_EQ(state.ProgramMeasureCount, 30000) << row.what;
    }
    EXPECT_EQ(prompts.messages.size(), std::size(rows));
}

TEST_F(ProgramFileTest, FileWithoutAProgramIsAskedAboutForItEmptiesTheFields)
{
    store.files["x"] = "[Program Ver.]\r\nProgram Ver.=1\r\n[Program Settings]\r\nMeasure Number=5\r\n";
    prompts.openNames = {"x", "x"};
    prompts.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(command.OpenProgram());
    EXPECT_EQ(state.ProgramMeasureCount, 30000);
    EXPECT_TRUE(command.OpenProgram());
    EXPECT_THAT(Numbers(), testing::ElementsAre(0, 0, 0, 34, 0, 0, 56));
    EXPECT_EQ(StartText(), "|");
    ASSERT_EQ(prompts.messages.size(), 2U);
    EXPECT_EQ(prompts.messages[0].buttons, Buttons::YesNo);
    EXPECT_EQ(prompts.messages[0].unattended, Answer::No);
    EXPECT_THAT(prompts.messages[0].text, testing::StartsWith("The file holds no measuring program."));
}

} // namespace
} // namespace quorvane
