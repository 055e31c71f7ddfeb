#include "app/SaveDialog.h"

#include "app/QtPrompts.h"
#include "app/QtText.h"
#include "tests/support/Operator.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <gmock/gmock.h>

namespace quorvane {
namespace {

struct SaveDialogTest : testing::Test {
    QTemporaryDir folder;
    ApplicationState state;
    StringTable table{TableLanguage::Japanese};
    Texts texts{table, state};
    QtPrompts prompts{texts};
    SaveQuestion question{.filter = "All Files (*.*)|*.*|CSV FILE (*.csv)|*.CSV|",
                          .filterIndex = 2,
                          .defaultName = "",
                          .folder = Typed(folder.path()),
                          .extensions = {"", "csv"}};
    Operator someone;

    SaveDialogTest() { state.LanguageOffset = 10000; }

    void Put(const QString& name) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }
    [[nodiscard]] std::string Path(const QString& name) const
    {
        return Typed(QDir::toNativeSeparators(QDir(folder.path()).absoluteFilePath(name)));
    }
    std::string Ask() { return prompts.AskSaveName(question).value_or("cancelled"); }

    static QLineEdit& Name(QDialog& dialog) { return *dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs); }
    static QComboBox& Types(QDialog& dialog) { return *dialog.findChild<QComboBox*>(u"fileTypeCombo"_qs); }
    /// Types a name and presses Enter.
    static Operator::Step Save(const QString& name)
    {
        return [name](QDialog& dialog) {
            Name(dialog).selectAll();
            QTest::keyClicks(&Name(dialog), name);
            QWidget* const proposals = QApplication::activePopupWidget(); // they take the keys
            QTest::keyClick(proposals != nullptr ? proposals : &Name(dialog), Qt::Key_Return);
        };
    }
    static void Choose(QDialog& dialog, int filter)
    {
        while (Types(dialog).currentIndex() != filter)
            QTest::keyClick(&Types(dialog),
                            Types(dialog).currentIndex() < filter ? Qt::Key_Down : Qt::Key_Up);
    }
    /// Answers the box, whose text has to be `text`.
    static Operator::Step Answers(const QString& text, const Operator::Step& answer)
    {
        return [=](QDialog& dialog) {
            EXPECT_EQ(Typed(dialog.property("text").toString()), Typed(text));
            answer(dialog);
        };
    }
};

TEST_F(SaveDialogTest, CanBeAskedWithoutHoldingAnythingUp)
{
    std::string chosen;
    for (const bool saves : {false, true}) {
        prompts.AskSaveNameLater(question, [&](const std::string& path) { chosen = path; });
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        saves ? Save(u"out.csv"_qs)(*dialog) : dialog->reject();
        EXPECT_EQ(chosen, saves ? Path(u"out.csv"_qs) : "");
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Put(u"out.csv"_qs); // and the question about it holds nothing up either
    chosen.clear();
    prompts.AskSaveNameLater(question, [&](const std::string& path) { chosen = path; });
    Save(u"out"_qs)(*qobject_cast<QDialog*>(QApplication::activeModalWidget()));
    Click(u"Yes"_qs)(*qobject_cast<QDialog*>(QApplication::activeModalWidget()));
    EXPECT_EQ(chosen, Path(u"out.csv"_qs));
    prompts.Tell({.text = "read it when you like"});
    Press(Qt::Key_Escape)(*qobject_cast<QDialog*>(QApplication::activeModalWidget()));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(SaveDialogTest, AQuotationMarkIsPartOfTheName)
{
    someone.Does({Save(u"12\" pipe"_qs)});
    EXPECT_EQ(Ask(), Path(u"12\" pipe.csv"_qs));
}

TEST_F(SaveDialogTest, TheExtensionIsAddedWhileItsFilterIsChosen)
{
    someone.Does({Save(u"run"_qs)});
    EXPECT_EQ(Ask(), Path(u"run.csv"_qs));
    someone.Does({Save(u"run.txt"_qs)});
    EXPECT_EQ(Ask(), Path(u"run.txt"_qs));
    someone.Does({[](QDialog& dialog) {
        Choose(dialog, 0);
        Save(u"run"_qs)(dialog);
    }});
    EXPECT_EQ(Ask(), Path(u"run"_qs));
    question.extensions = {"png", "pdf"};
    someone.Does({Save(u"run"_qs)});
    EXPECT_EQ(Ask(), Path(u"run.pdf"_qs));
}

TEST_F(SaveDialogTest, AnotherFilterListsOtherFilesAndLeavesTheNameAlone)
{
    Put(u"a.csv"_qs);
    Put(u"b.CSV"_qs);
    Put(u"c.txt"_qs);
    Put(u"d"_qs);
    const auto listed = [](QDialog& dialog) {
        auto* const list = dialog.findChild<QListView*>(u"listView"_qs);
        return list->model()->rowCount(list->rootIndex());
    };
    someone.Does({[&](QDialog& dialog) {
        EXPECT_EQ(Types(dialog).itemText(0), u"All Files (*.*)");
        EXPECT_EQ(Types(dialog).itemText(1), u"CSV FILE (*.csv)");
        EXPECT_TRUE(QTest::qWaitFor([&] { return listed(dialog) == 2; }));
        QTest::keyClicks(&Name(dialog), u"dust 1.5"_qs);
        Choose(dialog, 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return listed(dialog) == 4; }));
        Choose(dialog, 1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return listed(dialog) == 2; }));
        EXPECT_EQ(Name(dialog).text(), u"dust 1.5");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    }});
    EXPECT_EQ(Ask(), "cancelled");
}

TEST_F(SaveDialogTest, ReplacingIsAskedOfTheFinalNameAndNoLeadsBack)
{
    Put(u"run.csv"_qs);
    const QString asked = u"run.csv already exists. Replace it?"_qs;
    const auto unchanged = [](QDialog& dialog) { EXPECT_EQ(Name(dialog).text(), u"run"); };
    someone.Does({Save(u"run"_qs), Answers(asked, Click(u"No"_qs)), unchanged, Save(u"run"_qs),
                  Answers(asked, Press(Qt::Key_Escape)), unchanged, Save(u"run"_qs),
                  Answers(asked, Press(Qt::Key_Return)), unchanged, Save(u"run"_qs),
                  Answers(asked, Click(u"Yes"_qs))});
    EXPECT_EQ(Ask(), Path(u"run.csv"_qs));

    question.overwritePrompt = false;
    someone.Does({Save(u"run"_qs)});
    EXPECT_EQ(Ask(), Path(u"run.csv"_qs));
}

TEST_F(SaveDialogTest, AFolderIsEnteredAndAPathThatCannotBeTakenLeadsBack)
{
    QDir(folder.path()).mkpath(u"sub/run.csv"_qs);
    someone.Does(
        {Save(u"sub"_qs), Save(u"run"_qs),
         Answers(u"This is the name of a folder or a device. Choose another file name."_qs,
                 Press(Qt::Key_Escape)),
         Save(u"none/run"_qs),
         Answers(u"The folder or the file does not exist. Choose another place."_qs, Press(Qt::Key_Escape)),
         [](QDialog& dialog) {
             EXPECT_EQ(Name(dialog).text(), u"none/run");
             Save(u"other"_qs)(dialog);
         }});
    EXPECT_EQ(Ask(), Path(u"sub/other.csv"_qs));
}

TEST_F(SaveDialogTest, ItStartsInItsFolderOrAtHome)
{
    const QByteArray home = qgetenv("HOME");
    QTemporaryDir homeFolder;
    qputenv("HOME", homeFolder.path().toLocal8Bit());
    for (const QString& wanted : {folder.path(), QString(), folder.filePath(u"none"_qs)}) {
        const bool exists = wanted == folder.path();
        question.folder = Typed(wanted);
        question.defaultName = "proposed";
        someone.Does({[&](QDialog& dialog) {
            auto& files = dynamic_cast<QFileDialog&>(dialog);
            EXPECT_EQ(files.directory(), exists ? QDir(folder.path()) : QDir(homeFolder.path()));
            EXPECT_EQ(files.sidebarUrls().size(), exists ? 2 : 1);
            EXPECT_EQ(Name(dialog).text(), u"proposed");
            dialog.close();
        }});
        EXPECT_EQ(Ask(), "cancelled");
    }
    qputenv("HOME", home);
}

TEST_F(SaveDialogTest, ItSpeaksTheProgramsLanguage)
{
    state.LanguageOffset = 0;
    someone.Does({[](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"名前を付けて保存");
        std::vector<std::string> words;
        for (const char* label : {"lookInLabel", "fileNameLabel", "fileTypeLabel"})
            words.push_back(Typed(dialog.findChild<QLabel*>(QLatin1String(label))->text()));
        for (auto* button : dialog.findChildren<QPushButton*>())
            words.push_back(Typed(button->text()));
        EXPECT_THAT(words, testing::ElementsAre("場所:", "ファイル名(&N):", "ファイルの種類:", "保存(&S)",
                                                "キャンセル"));
        dialog.close();
    }});
    EXPECT_EQ(Ask(), "cancelled");
}

TEST_F(SaveDialogTest, TheOpenDialogTakesAFileThatIsThere)
{
    QDir(folder.path()).mkdir(u"sub"_qs);
    Put(u"run.csv"_qs);
    Put(u"run.txt"_qs);
    const OpenQuestion open{.filter = question.filter, .filterIndex = 2, .folder = question.folder};
    const auto listed = [](QDialog& dialog) {
        auto* const list = dialog.findChild<QListView*>(u"listView"_qs);
        return list->model()->rowCount(list->rootIndex());
    };
    someone.Does(
        {Save(u"none.csv"_qs),
         Answers(u"The folder or the file does not exist. Choose another place."_qs, Press(Qt::Key_Escape)),
         [&](QDialog& dialog) {
             EXPECT_EQ(Name(dialog).text(), u"none.csv");
             EXPECT_TRUE(QTest::qWaitFor([&] { return listed(dialog) == 2; })) << "a folder and a file";
             Save(u"sub"_qs)(dialog);
         },
         [](QDialog& dialog) {
             EXPECT_EQ(Name(dialog).text(), u"") << "the folder is entered";
             Save(u"../run.txt"_qs)(dialog);
         }});
    EXPECT_EQ(prompts.AskOpenName(open), Path(u"sub/../run.txt"_qs));

    state.LanguageOffset = 0;
    someone.Does({[](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"開く");
        EXPECT_EQ(dialog.findChild<QPushButton*>()->text(), u"開く(&O)");
        dialog.close();
    }});
    EXPECT_EQ(prompts.AskOpenName(open), std::nullopt);
}

} // namespace
} // namespace quorvane
