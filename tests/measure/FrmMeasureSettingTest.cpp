#include "measure/FrmMeasureSetting.h"

#include "tests/support/FixedLocale.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString kDigitsOfFullWidth = QStringLiteral("１２０");

struct FrmMeasureSettingTest : testing::Test {
    FrmMeasureSettingTest()
    {
        settings.TotalSamples = 100;
        settings.MeasureSetting2 = 3;
        settings.SamplingSeconds = 60;
        settings.TotalHours = 1;
        settings.TotalMinutes = 40;
        settings.TotalSeconds = 0;
    }

    void Open()
    {
        messages.clear();
        dialog.emplace(
            settings, texts, locale, [this](const Message& message) { Tell(message); }, nullptr);
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*dialog));
    }
    void Tell(const Message& message)
    {
        EXPECT_EQ(message.icon, Icon::Critical);
        EXPECT_EQ(message.titleId, 101);
        messages.push_back(message.text);
    }
    QLineEdit* Box(int number) { return dialog->findChild<QLineEdit*>(QStringLiteral("Text%1").arg(number)); }
    void Type(int number, const QString& text)
    {
        Box(number)->setFocus();
        Box(number)->selectAll();
        for (const QChar letter : text)
            QTest::keyClick(Box(number), letter.toLatin1());
        Settle();
    }
    void Paste(int number, const QString& text)
    {
        Box(number)->setFocus();
        Box(number)->selectAll();
        Box(number)->insert(text);
        Settle();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(dialog->focusWidget(), key, modifiers);
        Settle();
    }
    /// As a hand does it: events are served between press and release.
    void Click(const char* button)
    {
        auto* const control = dialog->findChild<QAbstractButton*>(QLatin1String(button));
        QTest::mousePress(control, Qt::LeftButton);
        Settle();
        QTest::mouseRelease(control, Qt::LeftButton);
        Settle();
    }
    static void Settle()
    {
        for (int round = 0; round < 5; ++round)
            QApplication::processEvents();
    }
    std::vector<std::string> Shown()
    {
        std::vector<std::string> shown;
        for (int number = 1; number <= 6; ++number)
            shown.push_back(Box(number)->text().toStdString());
        return shown;
    }
    std::vector<double> Stored() const
    {
        return {settings.TotalSamples,
                double(settings.MeasureSetting2),
                double(settings.SamplingSeconds),
                settings.TotalHours,
                settings.TotalMinutes,
                settings.TotalSeconds};
    }

    MeasureSettings settings;
    ProgramPlace place;
    StringTable table{TableLanguage::English};
    Texts texts{table, place};
    FixedLocale locale;
    std::vector<std::string> messages;
    std::optional<FrmMeasureSetting> dialog;
};

constexpr const char* kNumberRefused = "It is over the setting range. Redo setup.(1-65500)";
constexpr const char* kSecondCountRefused = "It is over the setting range. Redo setup.(1-99)";
constexpr const char* kSamplingRefused = "It is over the setting range. Redo setup.(1-900)";

TEST_F(FrmMeasureSettingTest, OpensOnTheStoredValuesWithTheFirstSelected)
{
    settings.TotalHours = 7; // does not fit the rest; shown as it was read
    Open();
    EXPECT_THAT(Shown(), ElementsAre("100", "3", "60", "7", "40", "0"));
    EXPECT_EQ(Box(1)->selectedText(), QStringLiteral("100"));
    for (const char* next : {"Text2", "Text3", "Command1", "Command2", "Text1"}) { // not Text4 to Text6
        Press(Qt::Key_Tab);
        EXPECT_EQ(dialog->focusWidget()->objectName(), QLatin1String(next));
    }
    EXPECT_EQ(settings.TotalHours, 7);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(FrmMeasureSettingTest, StoresWhileTypingAndShowsTheTotal)
{
    Open();
    Type(1, QStringLiteral("120"));
    Type(3, QStringLiteral("30"));
    EXPECT_THAT(Shown(), ElementsAre("120", "3", "30", "1", "0", "0"));
    EXPECT_THAT(Stored(), ElementsAre(120, 3, 30, 1, 0, 0));
    Type(3, QStringLiteral("31")); // 3720 s
    EXPECT_THAT(Stored(), ElementsAre(120, 3, 31, 1, 2, 0));
    Type(1, QStringLiteral("121")); // 3751 s
    EXPECT_THAT(Stored(), ElementsAre(121, 3, 31, 1, 2, 31));
    Type(1, QStringLiteral("65500"));
    Type(3, QStringLiteral("900"));
    EXPECT_THAT(Shown(), ElementsAre("65500", "3", "900", "16375", "0", "0"));
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(FrmMeasureSettingTest, TakesZeroWhileTypingAndRefusesItOnLeaving)
{
    Open();
    Type(1, QStringLiteral("0"));
    EXPECT_EQ(settings.TotalSamples, 0);
    EXPECT_THAT(messages, IsEmpty());
    Press(Qt::Key_Tab);
    EXPECT_THAT(messages, ElementsAre(kNumberRefused));
    EXPECT_TRUE(Box(1)->hasFocus());
    EXPECT_EQ(Box(1)->selectedText(), QStringLiteral("0"));
    Type(1, QStringLiteral("05"));
    EXPECT_EQ(Shown()[0], "5");

    Press(Qt::Key_Backspace); // an emptied box counts as 0, and shows it
    EXPECT_THAT(Shown(), ElementsAre("0", "3", "60", "0", "0", "0"));
    QTest::keyClicks(Box(1), QStringLiteral("7"));
    EXPECT_THAT(Shown(), ElementsAre("7", "3", "60", "0", "7", "0"));

    Type(3, QStringLiteral("0"));
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_THAT(messages, ElementsAre(kNumberRefused, kSamplingRefused));
    EXPECT_TRUE(Box(3)->hasFocus());
}

TEST_F(FrmMeasureSettingTest, RefusesTooMuchAtOnceAndShowsTheStoredNumberAgain)
{
    Open();
    Type(1, QStringLiteral("65501"));
    EXPECT_THAT(messages, ElementsAre(kNumberRefused));
    EXPECT_EQ(Shown()[0], "6550"); // stored by the digit before
    EXPECT_EQ(settings.TotalSamples, 6550);
    EXPECT_TRUE(Box(1)->hasFocus());
    Type(3, QStringLiteral("901"));
    Paste(3, QStringLiteral("-5"));
    EXPECT_THAT(messages, ElementsAre(kNumberRefused, kSamplingRefused, kSamplingRefused));
    EXPECT_THAT(Stored(), ElementsAre(6550, 3, 90, 163, 45, 0)); // 589,500 s
}

TEST_F(FrmMeasureSettingTest, TakesTheSecondCountWhenItsBoxIsLeft)
{
    Open();
    for (const char* refused : {"100", "0", ""}) {
        SCOPED_TRACE(refused);
        messages.clear();
        Type(2, QLatin1String(refused));
        if (*refused == '\0')
            Press(Qt::Key_Delete);
        EXPECT_THAT(messages, IsEmpty());
        Press(Qt::Key_Tab);
        EXPECT_THAT(messages, ElementsAre(kSecondCountRefused));
        EXPECT_EQ(Box(2)->selectedText(), QStringLiteral("3"));
        EXPECT_TRUE(Box(2)->hasFocus());
    }
    Type(2, QStringLiteral("99"));
    EXPECT_EQ(settings.MeasureSetting2, 3);
    Press(Qt::Key_Tab);
    EXPECT_THAT(Stored(), ElementsAre(100, 99, 60, 1, 40, 0));
    Type(2, QStringLiteral("42"));
    Press(Qt::Key_Return); // OK takes it as well
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(settings.MeasureSetting2, 42);
}

TEST_F(FrmMeasureSettingTest, GivingUpChecksNothingAndPutsAllSixBack)
{
    for (const std::string_view way : {"click", "tab", "Escape", "close box"}) {
        SCOPED_TRACE(way);
        Open();
        Type(3, QStringLiteral("7"));
        Type(2, QStringLiteral("5"));
        Press(Qt::Key_Tab);
        Type(1, QStringLiteral("0"));
        EXPECT_THAT(Stored(), ElementsAre(0, 5, 7, 0, 0, 0));
        if (way == "click")
            Click("Command2");
        else if (way == "Escape")
            Press(Qt::Key_Escape);
        else if (way == "close box")
            dialog->close();
        else {
            Press(Qt::Key_Backtab, Qt::ShiftModifier);
            Press(Qt::Key_Space);
        }
        Settle();
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_THAT(messages, IsEmpty());
        EXPECT_THAT(Stored(), ElementsAre(100, 3, 60, 1, 40, 0));
    }
}

TEST_F(FrmMeasureSettingTest, OkChecksAllBoxesAndKeepsTheValues)
{
    for (const std::string_view way : {"click", "Enter"}) {
        SCOPED_TRACE(way);
        const auto ok = [&] { way == "click" ? Click("Command1") : Press(Qt::Key_Return); };
        Open();
        Type(3, QStringLiteral("0"));
        Type(1, QStringLiteral("20")); // by program: the box that is left so is not checked yet
        ok();
        EXPECT_THAT(messages, ElementsAre(kSamplingRefused));
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_TRUE(Box(3)->hasFocus());
        ok();
        EXPECT_THAT(messages, ElementsAre(kSamplingRefused, kSamplingRefused));
        Type(3, QStringLiteral("30"));
        ok();
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_THAT(Stored(), ElementsAre(20, 3, 30, 0, 10, 0));
    }
}

TEST_F(FrmMeasureSettingTest, TakesWholeNumbersInTheUsersWriting)
{
    locale.decimalSign = ",";
    settings.TotalSamples = 2.5; // of a settings file; a run would refuse it
    Open();
    EXPECT_EQ(Shown()[0], "2,5");
    Press(Qt::Key_Tab);
    EXPECT_THAT(Stored(), ElementsAre(2, 3, 60, 0, 2, 0)); // the even neighbour
    struct Row {
        QString pasted;
        double stored;
    };
    const Row rows[] = {{QStringLiteral("3,5"), 4},
                        {QStringLiteral("8.6"), 9},
                        {QStringLiteral("12 x"), 12},
                        {QStringLiteral("many"), 0},
                        {kDigitsOfFullWidth, 120}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pasted.toStdString());
        Paste(1, row.pasted);
        EXPECT_EQ(settings.TotalSamples, row.stored);
        EXPECT_EQ(Shown()[0], std::to_string(static_cast<int>(row.stored)));
    }
    EXPECT_THAT(messages, IsEmpty());
}

} // namespace
} // namespace quorvane
