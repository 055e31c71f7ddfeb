#include "options/FrmOption.h"

#include "tests/support/DialogWorld.h"
#include "tests/support/FakeCodePage.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/Operator.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ScriptedDrives.h"

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace quorvane {
namespace {

using testing::ElementsAre;

struct FrmOptionTest : DialogWorld<FrmOption> {
    FrmOptionTest()
    {
        for (const char* name : {"data", "other", "a,b", "粉じん"})
            std::filesystem::create_directory(Path(name));
        state.DefaultFolder = Path("data");
        state.RunMode = true;
    }
    [[nodiscard]] std::string Path(const std::string& name) const { return scratch.Path(name); }
    void Open() { Show(FrmOption::Parts{files, settings, drives, texts, Teller()}); }
    void Type(const std::string& folder) const
    {
        Part<QLineEdit>("Text1")->selectAll();
        Press(Qt::Key_Delete);
        QInputMethodEvent letters; // keys cannot give all of them
        letters.setCommitString(Shown(folder));
        QApplication::sendEvent(Part<QLineEdit>("Text1"), &letters);
    }
    [[nodiscard]] std::string Text1() const { return Typed(Part<QLineEdit>("Text1")->text()); }
    [[nodiscard]] bool Checked(const char* option) const { return Part<QRadioButton>(option)->isChecked(); }
    /// Opens the folder chooser, goes to the folder above and presses a button there.
    void ChooseAbove(const char* button)
    {
        Operator someone({[this, button](QDialog& chooser) {
            EXPECT_EQ(state.ChooserMode, 1);
            dialog->close();
            EXPECT_TRUE(dialog->isVisible());
            for (int key = 0; key < 2; ++key) // folds the folder, leaves it
                QTest::keyClick(chooser.focusWidget(), Qt::Key_Left);
            QTest::mouseClick(chooser.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
        }});
        Click("Command3");
        EXPECT_EQ(state.ChooserMode, 0);
        EXPECT_EQ(Text1(), state.DefaultFolder);
    }

    ScratchFolder scratch;
    ScriptedDrives drives{scratch.Path()};
    FakeCodePage codePage;
    FixedClock clock;
    FixedLocale locale;
    const SettingsFile settings{state, files, codePage, clock, locale, {}};
};

TEST_F(FrmOptionTest, ShowsTheStateAndLeavesALanguageOfALaterVersionAlone)
{
    Open();
    EXPECT_EQ(Text1(), Path("data"));
    EXPECT_TRUE(Checked("Option1") && Checked("Option3"));
    EXPECT_EQ(Part<QRadioButton>("Option3")->text(), u"System's own &language (English)"_qs);
    state.RunMode = false;
    state.LanguageMode = 2;
    state.SystemLanguageName = "Japanese";
    Open();
    EXPECT_TRUE(Checked("Option2"));
    EXPECT_FALSE(Checked("Option3") || Checked("Option4"));
    EXPECT_EQ(Part<QRadioButton>("Option3")->text(), u"System's own &language (Japanese)"_qs);
    Leave(Way::Enter);
    EXPECT_EQ(state.LanguageMode, 2);
    EXPECT_EQ(files.replaceCalls, 0);
}

TEST_F(FrmOptionTest, WhatIsChangedHoldsAtOnceAndOnlyOkKeepsIt)
{
    for (const Way way : {Way::Cancel, Way::Escape, Way::CloseBox, Way::Ok}) {
        Open();
        ChooseAbove("Command1");
        EXPECT_EQ(state.DefaultFolder + "/", scratch.Path());
        Type(Path("other"));
        ChooseAbove("Command2");
        EXPECT_EQ(state.DefaultFolder, Path("other"));
        for (const auto& [option, instrument] : {std::pair("Option1", true), {"Option2", false}}) {
            Click(option);
            EXPECT_EQ(state.RunMode, instrument);
        }
        for (const auto& [option, mode] : {std::pair("Option3", 0), {"Option4", 1}}) {
            Click(option);
            EXPECT_EQ(state.LanguageMode, mode);
        }
        Leave(way);
        EXPECT_EQ(state.DefaultFolder, Path(Keeps(way) ? "other" : "data"));
        EXPECT_EQ(state.RunMode, !Keeps(way));
        EXPECT_EQ(state.LanguageMode, Keeps(way) ? 1 : 0);
        EXPECT_EQ(state.LanguageOffset, 0);
        EXPECT_EQ(files.files[FileInFolder("app", "Language.dat")], Keeps(way) ? "Language = 1\r\n" : "");
        EXPECT_EQ(messages.size(), Keeps(way) ? 1U : 0U);
    }
    EXPECT_THAT(messages, ElementsAre("The language changes when the program is started the next time."));
}

TEST_F(FrmOptionTest, LooksAtAnotherFolderOnly)
{
    struct Row {
        const char* what;
        std::string before, typed;
        bool closes;
        const char* told; ///< begins so; empty: nothing
    };
    const Row rows[] = {
        {"another that is there", Path("data"), Path("other"), true, ""},
        {"one that is not", Path("data"), Path("missing"), false, "The folder does not exist."},
        {"none", Path("data"), "", false, "The folder does not exist."},
        {"the same, which is away", Path("away"), Path("away"), true, ""},
        {"a comma", Path("data"), Path("a,b"), true, "The settings file cannot hold this folder"},
        {"letters that the code page lacks", Path("data"), Path("粉じん"), true,
         "The settings file cannot hold this folder"},
        {"the same comma", Path("a,b"), Path("a,b"), true, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        state.DefaultFolder = row.before;
        Open();
        Type(row.typed);
        Click("Command1");
        EXPECT_EQ(dialog->isVisible(), !row.closes);
        EXPECT_EQ(state.DefaultFolder, row.typed);
        const std::string told = messages.empty() ? std::string() : messages.front();
        EXPECT_EQ(told.substr(0, std::string_view(row.told).size()), row.told);
        EXPECT_EQ(told.empty(), *row.told == '\0');
        if (row.closes)
            continue;
        EXPECT_EQ(dialog->focusWidget(), Part<QLineEdit>("Text1"));
        Leave(Way::Escape);
        EXPECT_EQ(state.DefaultFolder, row.before);
    }
}

TEST_F(FrmOptionTest, ALanguageThatCannotBeWrittenIsToldAndTheRestIsKept)
{
    files.replaceFault = FileFault{FileFaultKind::NoSpace, ""};
    Open();
    Type(Path("other"));
    Click("Option2");
    Click("Option4");
    Leave(Way::Ok);
    EXPECT_THAT(messages, ElementsAre("The choice of language could not be saved.\r\n"
                                      "There is no space left. Make room there or choose another place."));
    EXPECT_EQ(state.LanguageMode, 0);
    EXPECT_EQ(state.DefaultFolder, Path("other"));
    EXPECT_FALSE(state.RunMode);
}

} // namespace
} // namespace quorvane
