#include "options/FrmLanguageSelect.h"

#include "tests/support/DialogWorld.h"

#include <QLabel>
#include <QRadioButton>

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FrmLanguageSelectTest : DialogWorld<FrmLanguageSelect> {
    void Open() { Show(FrmLanguageSelect::Parts{files, texts, Teller()}); }
    [[nodiscard]] QRadioButton* Option(int number) const
    {
        return Part<QRadioButton>(("Option" + std::to_string(number)).c_str());
    }
};

TEST_F(FrmLanguageSelectTest, WritesTheModeInMemoryOnOkTouchedOrNot)
{
    const auto click = [this](const char* option) { return [this, option] { Click(option); }; };
    const auto press = [this](Qt::Key key) { return [this, key] { Press(key); }; };
    struct Row {
        const char* what;
        std::function<void()> choose;
        const char* bytes;
        std::int16_t before, after;
    };
    const Row rows[] = {
        {"untouched, own language", [] {}, "Language = 0\r\n", 0, 0},
        {"untouched, English", [] {}, "Language = 1\r\n", 1, 1},
        {"untouched, of the future", [] {}, "Language = 7\r\n", 7, 7},
        {"English clicked", click("Option1"), "Language = 1\r\n", 0, 1},
        {"Japanese clicked", click("Option2"), "Language = 0\r\n", 1, 0},
        {"arrow", press(Qt::Key_Down), "Language = 0\r\n", 1, 0},
        {"letter", press(Qt::Key_E), "Language = 1\r\n", 0, 1},
        {"other letter", press(Qt::Key_J), "Language = 0\r\n", 1, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        state.LanguageMode = row.before;
        Open();
        EXPECT_EQ(Option(1)->isChecked(), row.before == 1);
        EXPECT_EQ(Option(2)->isChecked(), row.before == 0);
        row.choose();
        EXPECT_EQ(state.LanguageMode, row.after);
        Leave(Way::Enter);
        EXPECT_EQ(files.files[FileInFolder("app", "Language.dat")], row.bytes);
        EXPECT_THAT(messages, IsEmpty());
    }
}

TEST_F(FrmLanguageSelectTest, AnyOtherWayOutWritesNothing)
{
    for (const Way way : {Way::Escape, Way::CloseBox}) {
        Open();
        Click("Option1");
        Leave(way);
        EXPECT_EQ(state.LanguageMode, 0);
        EXPECT_EQ(files.replaceCalls, 0);
    }
}

TEST_F(FrmLanguageSelectTest, AFailureIsToldAndTheDialogClosesAllTheSame)
{
    files.replaceFault = FileFault{FileFaultKind::NoPermission, "read-only file system"};
    Open();
    Click("Option1");
    Leave(Way::Ok);
    EXPECT_THAT(messages, ElementsAre("The choice of language could not be saved.\r\nread-only file system"));
    EXPECT_EQ(state.LanguageMode, 1); // for this time
}

TEST_F(FrmLanguageSelectTest, ShowsItsTextsAndAHintForWhoCannotReadThem)
{
    const char* const onlyThere = "Japanese appears on Japanese systems only; other systems show English.";
    for (const auto& [system, hint] : {std::pair("Japanese", "The upper choice is English."),
                                       {"English", onlyThere},
                                       {"Chinese", onlyThere}}) {
        state.SystemLanguageName = system;
        Open();
        EXPECT_EQ(Part<QLabel>("Hint")->text(), QLatin1String(hint)) << system;
    }
    EXPECT_EQ(dialog->windowTitle(), u"Language Select"_qs);
    EXPECT_EQ(Part<QLabel>("Label1")->text(), u"Please choose language."_qs);
    EXPECT_EQ(Option(1)->text(), u"English"_qs);
    EXPECT_EQ(Option(2)->text(), u"Japanese"_qs);
    EXPECT_EQ(Option(3)->text(), u"Chinese"_qs); // meant: fetched and never shown
    EXPECT_FALSE(Option(3)->isVisible());
}

} // namespace
} // namespace quorvane
