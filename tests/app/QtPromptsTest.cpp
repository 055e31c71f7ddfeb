#include "app/QtPrompts.h"

#include "app/QtEventPump.h"
#include "app/QtText.h"
#include "tests/support/Operator.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <gmock/gmock.h>
#include <memory>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using testing::UnorderedElementsAre;

struct QtPromptsTest : testing::Test {
    ApplicationState state;
    StringTable table{TableLanguage::Japanese};
    Texts texts{table, state};
    QtPrompts prompts{texts};
    const Message question{.text = "Save?", .icon = Icon::Critical, .buttons = Buttons::YesNo};
};

TEST_F(QtPromptsTest, AQuestionIsLeftByItsButtonsAlone)
{
    Operator someone({Press(Qt::Key_Escape), [](QDialog& box) { box.close(); }, Click(u"いいえ(N)"_qs)});
    EXPECT_EQ(prompts.Show(question), Answer::No);

    someone.Does({Click(u"はい(Y)"_qs)});
    EXPECT_EQ(prompts.Show(question), Answer::Yes);
    someone.Does({Press(Qt::Key_Return)});
    EXPECT_EQ(prompts.Show(question), Answer::Yes) << "what Enter says";
}

TEST_F(QtPromptsTest, ABoxSpeaksTheProgramsLanguage)
{
    const auto looks = [&](std::vector<std::string>& buttons) {
        return Operator::Step([&](QDialog& dialog) {
            auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle(), u"Quorvane Software");
            EXPECT_EQ(box.icon(), QMessageBox::Critical);
            for (auto* button : box.findChildren<QPushButton*>())
                buttons.push_back(Typed(button->text()));
            box.findChildren<QPushButton*>().first()->click();
        });
    };
    std::vector<std::string> japanese;
    std::vector<std::string> english;
    Operator someone({looks(japanese), looks(english)});
    prompts.Show(question);
    state.LanguageOffset = 10000;
    prompts.Show(question);
    EXPECT_THAT(japanese, UnorderedElementsAre("はい(&Y)", "いいえ(&N)"));
    EXPECT_THAT(english, UnorderedElementsAre("&Yes", "&No"));
}

TEST_F(QtPromptsTest, ABoxBelongsToTheDialogBeforeADisabledWindow)
{
    QWidget window;
    QDialog hidden(&window);
    QDialog dialog(&window);
    prompts.SetParent(&window);
    window.show();
    window.setEnabled(false);
    dialog.setEnabled(true);
    dialog.show();
    Operator someone({[&](QDialog& box) {
        EXPECT_EQ(box.parentWidget(), &dialog);
        EXPECT_TRUE(box.isEnabled());
        box.accept();
    }});
    prompts.Show({.text = "Done"});
}

TEST_F(QtPromptsTest, AMessageShowsItsTextAsItIsAndIsClosedInEveryWay)
{
    const Message message{.text = "<b>one</b>\r\ntwo & three",
                          .detail = "<i>why</i>",
                          .icon = Icon::Exclamation,
                          .titleId = 161};
    Operator someone;
    const Operator::Step ways[] = {Click(u"OK"_qs), Press(Qt::Key_Escape), Press(Qt::Key_Return),
                                   [](QDialog& box) { box.close(); }};
    for (const Operator::Step& way : ways) {
        someone.Does({[&](QDialog& dialog) {
                          auto& box = dynamic_cast<QMessageBox&>(dialog);
                          EXPECT_EQ(box.text(), u"<b>one</b>\ntwo & three");
                          EXPECT_EQ(box.textFormat(), Qt::PlainText);
                          EXPECT_EQ(box.informativeText(), u"<i>why</i>");
                          EXPECT_EQ(box.findChild<QLabel*>(u"qt_msgbox_informativelabel"_qs)->textFormat(),
                                    Qt::PlainText);
                          EXPECT_EQ(box.icon(), QMessageBox::Warning);
                          EXPECT_EQ(box.windowTitle(), u"測定器設定");
                      },
                      way});
        EXPECT_EQ(prompts.Show(message), Answer::Ok);
    }
}

TEST_F(QtPromptsTest, ABoxThatComesUpWhileOneIsOpenStandsInFrontOfIt)
{
    QWidget window;
    prompts.SetParent(&window);
    Operator someone({[&](QDialog& first) {
                          EXPECT_EQ(first.parentWidget(), &window);
                          prompts.Show({.text = "second"});
                          QTest::keyClick(&first, Qt::Key_Escape);
                      },
                      [&](QDialog& second) {
                          EXPECT_NE(second.parentWidget(), &window);
                          QTest::keyClick(&second, Qt::Key_Escape);
                      }});
    prompts.Show({.text = "first"});
}

TEST_F(QtPromptsTest, TheQuestionIsAskedWhileTheProgramCloses)
{
    QtEventPump pump;
    Answer answer = Answer::Ok;
    Operator someone({Click(u"いいえ(N)"_qs)});
    QTimer::singleShot(0, qApp, [&] {
        pump.Close();
        QApplication::exit(); // from here on the toolkit's own loops end at once
        answer = prompts.Show(question);
    });
    QApplication::exec();
    EXPECT_EQ(answer, Answer::No);
}

TEST_F(QtPromptsTest, AQuestionThatEndsWithItsWindowDiscardsNothing)
{
    auto window = std::make_unique<QWidget>();
    prompts.SetParent(window.get());
    Operator someone({[&](QDialog&) { QTimer::singleShot(0, qApp, [&] { window.reset(); }); }});
    EXPECT_EQ(prompts.Show(question), Answer::Yes);
    someone.Does({Press(Qt::Key_Return)});
    EXPECT_EQ(prompts.Show(question), Answer::Yes) << "without a window";
}

} // namespace
} // namespace quorvane
