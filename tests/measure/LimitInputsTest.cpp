#include "app/CheckedBox.h"
#include "tests/support/WindowWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using testing::ElementsAre;

struct LimitInputsTest : testing::Test, WindowWorld {
    CheckedBox* Box(int number) const { return Find<CheckedBox>(("Text" + std::to_string(number)).c_str()); }
    void Type(int number, const char* text)
    {
        Box(number)->setFocus();
        Box(number)->selectAll();
        QTest::keyClicks(Box(number), QString::fromLatin1(text));
        QApplication::processEvents();
    }
};

TEST_F(LimitInputsTest, StoreWhileTypingAndRefuseOnLeaving)
{
    Open();
    Type(1, "0");
    EXPECT_EQ(state.TwaAlarm, 0);
    EXPECT_TRUE(prompts.messages.empty());
    Type(1, "0.05");
    EXPECT_EQ(state.TwaAlarm, 0.05);
    Press(Qt::Key_Tab);
    EXPECT_TRUE(Box(2)->hasFocus());
    EXPECT_EQ(Box(2)->selectedText(), QStringLiteral("10"));

    Type(2, "0");
    Press(Qt::Key_Tab);
    EXPECT_THAT(Messages(), ElementsAre("It is over the setting range. Redo setup.(0.001-10)"));
    EXPECT_EQ(prompts.messages[0].titleId, 161); // another dialog's, meant
    EXPECT_EQ(prompts.messages[0].icon, Icon::Critical);
    EXPECT_TRUE(Box(2)->hasFocus()); // the focus stays
    EXPECT_EQ(state.StelAlarm, 0);

    Type(2, "5");
    QTest::keyClick(Box(2), Qt::Key_Backspace); // an empty box changes nothing
    Press(Qt::Key_Return);
    EXPECT_EQ(Messages().size(), 1U);
    EXPECT_EQ(Box(2)->text(), QStringLiteral("5"));

    QTest::mousePress(Box(3), Qt::LeftButton, {}, QPoint(20, 5));
    QTest::mouseMove(Box(3), QPoint(24, 5)); // a hand is not that steady
    QTest::mouseRelease(Box(3), Qt::LeftButton, {}, QPoint(24, 5));
    EXPECT_EQ(Box(3)->selectedText(), QStringLiteral("10"));
}

TEST_F(LimitInputsTest, DoNotSendTheFocusToAndFroWhenSeveralAreOutOfRange)
{
    state.TwaAlarm = state.StelAlarm = state.CAlarm = 0; // as a settings file without them gives
    Open();
    Box(1)->setFocus();
    for (int press = 1; press <= 2; ++press) {
        Press(Qt::Key_Tab);
        for (int round = 0; round < 20; ++round)
            QApplication::processEvents();
        EXPECT_EQ(prompts.messages.size(), static_cast<std::size_t>(press));
        EXPECT_TRUE(Box(1)->hasFocus());
    }
    Type(1, "0.5");
    Press(Qt::Key_Tab);
    EXPECT_TRUE(Box(2)->hasFocus());
    EXPECT_EQ(prompts.messages.size(), 2U);
}

TEST_F(LimitInputsTest, AreNotChangedByBeingFilledAndTakeTheUsersDecimalSign)
{
    locale.decimalSign = ",";
    state.TwaAlarm = 20.5; // out of range in the file; shown as it is, and told when it matters
    Open();
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_EQ(Box(1)->text(), QStringLiteral("20,5"));
    EXPECT_EQ(state.TwaAlarm, 20.5);
    Type(1, "0,25");
    EXPECT_EQ(state.TwaAlarm, 0.25);
}

TEST_F(LimitInputsTest, HoldTheWindowWhileTheirMessageIsOpen)
{
    Open();
    prompts.whileOpen = [this] {
        EXPECT_FALSE(window->close()); // the system may ask so at any time
        EXPECT_TRUE(window->isVisible());
    };
    Type(1, "11");
    QApplication::processEvents();
    EXPECT_FALSE(window->isVisible()); // the close comes back when the message has been read
}

TEST_F(LimitInputsTest, AreNotCheckedWhenAnotherWindowTakesTheFocus)
{
    Open();
    Type(1, "0");
    QWidget other; // as a message box or another program does
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_FALSE(Box(1)->hasFocus());
    QApplication::processEvents();
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(LimitInputsTest, AreCheckedBeforeEveryStart)
{
    Open();
    for (const char* way : {"button", "menu", "shortcut"}) {
        SCOPED_TRACE(way);
        prompts.messages.clear();
        Pause();
        Type(2, "0");
        if (way == std::string_view("button"))
            Click("Command1");
        else if (way == std::string_view("menu"))
            Trigger("MenuMeasureStart");
        else
            Press(Qt::Key_F5);
        EXPECT_THAT(Messages(), ElementsAre("It is over the setting range. Redo setup.(0.001-10)"));
        EXPECT_EQ(port.opened, 0);
        EXPECT_TRUE(Box(2)->hasFocus());
    }
}

TEST_F(LimitInputsTest, OutOfOrderSendTheFocusToTheFirst)
{
    Open();
    Type(3, "1"); // ceiling below the others, 10
    Click("Command1");
    EXPECT_THAT(
        Messages(),
        ElementsAre("It is over the setting range. Redo setup.\r\n\r\nTLV-C: > TLV-STEL: > TLV-TWA:"));
    EXPECT_TRUE(Box(1)->hasFocus());
    ExpectIdle();
}

} // namespace
} // namespace quorvane
