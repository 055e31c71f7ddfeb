#include "measure/LampView.h"
#include "measure/LimitBox.h"
#include "measure/LiveTable.h"
#include "tests/support/WindowWorld.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QRegularExpression>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::Not;

struct FrmMenuTest : testing::Test, WindowWorld {
    [[nodiscard]] int Rows() const { return Find<LiveTable>("vaSpread1")->model()->rowCount(); }
    [[nodiscard]] std::string Cell(int row, int column) const
    {
        return Find<LiveTable>("vaSpread1")->model()->index(row, column).data().toString().toStdString();
    }
    [[nodiscard]] std::string Label(const char* name) const
    {
        return Find<QLabel>(name)->text().toStdString();
    }
    [[nodiscard]] bool Enabled(const char* action) const { return Find<QAction>(action)->isEnabled(); }
    void Trigger(const char* action)
    {
        Find<QAction>(action)->trigger();
        QApplication::processEvents();
    }
    /// What has to hold whenever no run is under way, whatever happened before.
    void ExpectIdle()
    {
        EXPECT_EQ(window->Run().State(), RunState::Idle);
        EXPECT_FALSE(port.IsOpen());
        EXPECT_FALSE(timer1.Enabled() || timer2.Enabled() || timer3.Enabled());
        EXPECT_EQ(Caption(), "Measure Start");
        EXPECT_TRUE(Enabled("MenuMeasureStart"));
        EXPECT_FALSE(Enabled("MenuMeasureEnd"));
        EXPECT_TRUE(Find<LimitBox>("Text1")->isEnabled());
        EXPECT_EQ(Rows(), state.SampleCount);
    }
};

// ---- opening --------------------------------------------------------------------------------------------

TEST_F(FrmMenuTest, OpensIdleWithTheSettingsRead)
{
    state.TwaAlarm = 0.05;
    state.StelAlarm = 1.5;
    state.CAlarm = 10;
    state.DataPresent = state.DataSaved = 1; // nothing left from before counts
    Open();
    ExpectIdle();
    EXPECT_EQ(state.DataPresent, 0);
    EXPECT_EQ(state.DataSaved, 0);
    EXPECT_EQ(Label("Label1"), "Alarm value (TWA) [mg/m3]");
    EXPECT_EQ(Label("Label2"), "Alarm value (STEL) [mg/m3]");
    EXPECT_EQ(Label("Label3"), "Alarm value (C) [mg/m3]");
    EXPECT_EQ(Find<LiveTable>("vaSpread1")->font().families().front(), QStringLiteral("MS PGothic"));
    EXPECT_LE(window->minimumSizeHint().width(), 1024);
    EXPECT_FALSE(Enabled("MenuSave"));
    EXPECT_EQ(Find<LimitBox>("Text1")->text(), QStringLiteral("0.05"));
    EXPECT_EQ(Find<LimitBox>("Text2")->text(), QStringLiteral("1.5"));
    EXPECT_EQ(Find<LimitBox>("Text3")->text(), QStringLiteral("10"));
    EXPECT_EQ(window->focusWidget(), Find<QWidget>("Command1"));
    EXPECT_EQ(Label("StatusPort"), "COM1");
    EXPECT_FALSE(Find<QLabel>("SimulatedNotice")->isVisible());
}

TEST_F(FrmMenuTest, SaysThatReadingsAreSimulatedWhereNobodyCanOverlookIt)
{
    state.RunMode = false;
    Open();
    EXPECT_TRUE(Find<QLabel>("SimulatedNotice")->isVisible());
    EXPECT_THAT(Label("SimulatedNotice"), testing::StartsWith("SIMULATED"));
    EXPECT_EQ(Label("StatusMode"), "SIMULATED");
    window->Announce(std::string(500, 'x')); // a long path does not widen the window
    EXPECT_LE(window->minimumSizeHint().width(), 1024);
    Click("Command1");
    EXPECT_EQ(Rows(), 3);
    EXPECT_EQ(port.opened, 0);
}

TEST_F(FrmMenuTest, SpeaksTheLanguageThatTheChoiceAndTheSystemGive)
{
    table = StringTable(TableLanguage::Japanese);
    state.SystemLanguageName = "Japanese";
    Open();
    EXPECT_EQ(Caption(), "測定開始");
    window.reset();
    state.LanguageMode = 1;
    Open();
    EXPECT_EQ(Caption(), "Measure Start");
    EXPECT_EQ(state.LanguageOffset, 10000);
}

TEST_F(FrmMenuTest, HasACaptionEverywhereInBothLanguages)
{
    for (const TableLanguage language : {TableLanguage::English, TableLanguage::Japanese}) {
        table = StringTable(language);
        state.SystemLanguageName = language == TableLanguage::Japanese ? "Japanese" : "English";
        Open();
        EXPECT_EQ(Caption() == "測定開始", language == TableLanguage::Japanese);
        for (const QAction* action :
             window->findChildren<QAction*>(QRegularExpression(QStringLiteral("^Menu"))))
            EXPECT_FALSE(action->text().isEmpty()) << action->objectName().toStdString();
        for (const QAbstractButton* button : window->findChildren<QPushButton*>())
            EXPECT_FALSE(button->text().isEmpty()) << button->objectName().toStdString();
        for (const char* label : {"Label1", "Label2", "Label3", "LampName1", "LampName2", "LampName3"})
            EXPECT_NE(Label(label), "");
        for (int column = 0; column < 7; ++column)
            EXPECT_NE(Find<LiveTable>("vaSpread1")->model()->headerData(column, Qt::Horizontal).toString(),
                      QString());
    }
}

// ---- measuring ------------------------------------------------------------------------------------------

TEST_F(FrmMenuTest, MeasuresWithOneClickAndShowsWhatItReads)
{
    state.TwaAlarm = 1; // every reading is 1.25
    state.CAlarm = 1.25;
    state.StelAlarm = 1.25;
    Open();
    bool checked = false;
    onPump = [&](long) {
        if (checked || state.SampleCount < 2)
            return;
        checked = true;
        EXPECT_EQ(Caption(), "Measure End");
        EXPECT_FALSE(Enabled("MenuMeasureStart") || Enabled("MenuSave"));
        EXPECT_TRUE(Enabled("MenuMeasureEnd"));
        EXPECT_FALSE(Find<LimitBox>("Text2")->isEnabled());
        EXPECT_EQ(Label("StatusState"), "Measuring");
    };
    Measure();
    EXPECT_TRUE(checked);
    ExpectIdle();
    EXPECT_EQ(Rows(), 3);
    EXPECT_EQ(Cell(2, 0), "09:30:03");
    EXPECT_EQ(Cell(2, 1), "12");
    EXPECT_EQ(Cell(2, 2), "1.25");
    EXPECT_EQ(Cell(2, 5), "36");   // 3 x 12
    EXPECT_EQ(Cell(2, 6), "3.75"); // 3 x 1.25
    EXPECT_EQ(Label("ConcNow"), "1.250");
    EXPECT_EQ(Label("StatusSample"), "Sample 3 of 3");
    EXPECT_TRUE(window->isWindowModified());

    EXPECT_TRUE(Find<LampView>("Image1")->IsLit());  // 1.25 > 1
    EXPECT_FALSE(Find<LampView>("Image2")->IsLit()); // not in the first 15 minutes
    EXPECT_TRUE(Find<LampView>("Image3")->IsLit());  // 1.25 >= 1.25
    EXPECT_EQ(Find<LampView>("Image3")->accessibleName(), QStringLiteral("TLV-C: ALARM"));
    Press(Qt::Key_F8);
    EXPECT_FALSE(Find<LampView>("Image1")->IsLit() || Find<LampView>("Image3")->IsLit());
}

TEST_F(FrmMenuTest, LampsDifferByWordAndShape)
{
    Open();
    auto* const lamp = Find<LampView>("Image2");
    const auto pictureAndWord = [&] {
        std::pair<QImage, QString> shown;
        for (const QLabel* label : lamp->findChildren<QLabel*>())
            label->pixmap().isNull() ? void(shown.second = label->text())
                                     : void(shown.first = label->pixmap().toImage());
        return shown;
    };
    const auto unlit = pictureAndWord();
    lamp->SetLit(true);
    EXPECT_NE(pictureAndWord().first, unlit.first);
    EXPECT_NE(pictureAndWord().second, unlit.second);
    Find<LampView>("Image1")->SetLit(true);
    EXPECT_NE(Find<LampView>("Image1")->grab().toImage(), lamp->grab().toImage());
}

TEST_F(FrmMenuTest, KeepsTheSixthRowFromTheEndOnTop)
{
    Plan(8, 1);
    Open();
    const auto* view = Find<LiveTable>("vaSpread1");
    std::vector<int> top;
    int seen = 0;
    onPump = [&](long) {
        if (Rows() != seen && (seen = Rows()) > 0)
            top.push_back(view->rowAt(1) + 1);
    };
    Measure();
    EXPECT_THAT(top, ElementsAre(1, 1, 1, 1, 1, 1, 2, 3));
}

TEST_F(FrmMenuTest, CopiesRowsAsSpreadsheetsTakeThem)
{
    Open();
    Measure();
    auto* const view = Find<LiveTable>("vaSpread1");
    view->selectRow(1);
    view->setFocus();
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("09:30:02\t12\t1.25\t1.25\t1.25\t24\t2.5\n"));
}

TEST_F(FrmMenuTest, StopsByButtonMenuAndShortcut)
{
    Plan(5, 1);
    for (const char* way : {"button", "menu", "shortcut"}) {
        SCOPED_TRACE(way);
        Open();
        bool stopped = false;
        onPump = [&](long) {
            if (stopped || Rows() < 2)
                return;
            stopped = true;
            if (way == std::string_view("button"))
                Click("Command1");
            else if (way == std::string_view("menu"))
                Trigger("MenuMeasureEnd");
            else
                Press(Qt::Key_F5, Qt::ShiftModifier);
        };
        Measure();
        ExpectIdle();
        EXPECT_EQ(Rows(), 2);
        EXPECT_EQ(port.sent.back(), "N\r\n"); // the stop exchange
        EXPECT_TRUE(prompts.messages.empty());
        onPump = nullptr;
        window.reset();
    }
}

TEST_F(FrmMenuTest, ADoubleClickIsOneClick)
{
    Open();
    GiveLines(3);
    auto* const button = Find<QPushButton>("Command1");
    onPump = [&](long pump) {
        if (pump != 1)
            return;
        // What the system sends behind the first press and release, which have started the run.
        for (const QEvent::Type type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QApplication::sendEvent(button, &event);
        }
    };
    Click("Command1");
    EXPECT_EQ(Rows(), 3);
}

TEST_F(FrmMenuTest, ARunThatCannotStartTakesNothingAway)
{
    Open();
    Measure();
    state.DataSaved = 1;
    port.openFault = PortFault{PortFaultKind::Busy, "taken"};
    Click("Command1");
    ExpectIdle();
    EXPECT_EQ(Rows(), 3);
    EXPECT_EQ(Label("ConcNow"), "1.250");
    EXPECT_EQ(prompts.messages.size(), 1U);
}

// ---- saving ---------------------------------------------------------------------------------------------

TEST_F(FrmMenuTest, SavesCancelsAndSurvivesAFailedSave)
{
    Open();
    Measure();
    Press(Qt::Key_S, Qt::ControlModifier); // cancelled
    EXPECT_TRUE(window->isWindowModified());

    prompts.saveNames = {"full.csv"};
    files.replaceFault = FileFault{FileFaultKind::NoSpace, "disk full"};
    Trigger("MenuSave");
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_THAT(Messages(), ElementsAre("Data File can not create or save.\r\ndisk full"));

    files.replaceFault.reset();
    prompts.saveNames = {"good.csv"};
    Trigger("MenuSave");
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_THAT(files.files["good.csv"], testing::HasSubstr("\r\n09:30:03,12,1.25,1.25,1.25,36,3.75\r\n"));
    EXPECT_TRUE(Enabled("MenuSave"));
}

TEST_F(FrmMenuTest, ASecondRunAsksAboutTheFirstUnlessThatIsSaved)
{
    Open();
    Measure();
    prompts.saveNames = {"first.csv"};
    Trigger("MenuSave");
    onPump = [this](long) { EXPECT_FALSE(Enabled("MenuSave")); }; // the first is about to be replaced
    Measure();
    EXPECT_TRUE(prompts.messages.empty()); // the first is saved

    prompts.answers = {Answer::Yes};
    prompts.saveNames = {"second.csv"};
    onPump = nullptr;
    Measure(); // the second is not; it is saved instead of a third run
    EXPECT_THAT(Messages(), ElementsAre("Data is not saved. Do you save?"));
    EXPECT_TRUE(files.files.contains("second.csv"));
    EXPECT_EQ(port.opened, 2);
    EXPECT_FALSE(window->isWindowModified());
}

// ---- closing --------------------------------------------------------------------------------------------

TEST_F(FrmMenuTest, ClosesOnlyWhenNothingIsLostAgainstTheOperatorsWill)
{
    struct Row {
        std::string_view what;
        bool data;
        Answer answer;
        std::optional<std::string> saveName;
        bool diskFull, closes;
    };
    const Row rows[] = {
        {"no data, no question", false, Answer::Ok, {}, false, true},
        {"No discards", true, Answer::No, {}, false, true},
        {"Yes saves", true, Answer::Yes, "out.csv", false, true},
        {"Yes, but the dialog is cancelled: nothing was saved", true, Answer::Yes, {}, false, false},
        {"Yes, but the disk is full", true, Answer::Yes, "out.csv", true, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        prompts.messages.clear();
        prompts.saveNames.clear();
        Open();
        if (row.data)
            Measure();
        prompts.answers = {row.answer};
        if (row.saveName)
            prompts.saveNames = {row.saveName};
        if (row.diskFull)
            files.replaceFault = FileFault{FileFaultKind::NoSpace, ""};
        files.files.erase("app/Quorvane.ini");
        EXPECT_EQ(window->close(), row.closes);
        EXPECT_EQ(window->isVisible(), !row.closes);
        EXPECT_EQ(std::exchange(closed, 0), row.closes ? 1 : 0);
        EXPECT_EQ(files.files.contains("app/Quorvane.ini"), row.closes);
        EXPECT_EQ(prompts.messages.empty(), !row.data);
        files.replaceFault.reset();
        if (!row.closes) { // the operator has stayed; everything goes on
            prompts.answers = {Answer::No};
            Measure();
            ExpectIdle();
            EXPECT_EQ(Rows(), 3);
        }
        window.reset();
    }
}

TEST_F(FrmMenuTest, ExitWritesTheSettingsBeforeTheQuestionAndAtTheClose)
{
    Open();
    Measure();
    prompts.whileOpen = [this] { EXPECT_EQ(files.replaceCalls, 2); }; // the test's own and this one
    Trigger("MenuExit");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(files.replaceCalls, 3);
}

TEST_F(FrmMenuTest, ACloseBehindTheQuestionIsAnsweredWithIt)
{
    Open();
    Measure();
    prompts.whileOpen = [this] { window->close(); };
    prompts.answers = {Answer::Yes}; // and then no file name
    EXPECT_FALSE(window->close());
    QApplication::processEvents();
    EXPECT_EQ(prompts.messages.size(), 1U);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(FrmMenuTest, ACloseDuringARunComesBackWhenTheRunHasEnded)
{
    Plan(5, 1);
    Open();
    std::size_t sentAtQuestion = 0;
    prompts.whileOpen = [&] { sentAtQuestion = port.sent.size(); };
    onPump = [this](long) {
        if (Rows() == 2 && window->Run().State() == RunState::Measuring) {
            EXPECT_FALSE(window->close());
            EXPECT_FALSE(window->close()); // an impatient second one must not give the stop exchange up
        }
    };
    prompts.answers = {Answer::Yes}; // and then no file name: the window stays
    Measure();
    EXPECT_THAT(Messages(), ElementsAre("Data is not saved. Do you save?"));
    EXPECT_EQ(sentAtQuestion, port.sent.size());
    EXPECT_EQ(port.sent.back(), "N\r\n");
    EXPECT_TRUE(window->isVisible());
    ExpectIdle();
    EXPECT_EQ(Rows(), 2);
}

TEST_F(FrmMenuTest, ACloseWhileTheRunConnectsOrTheStartAsksStopsIt)
{
    Plan(50, 1);
    for (const bool asks : {false, true}) {
        Open();
        if (asks) {
            Plan(2, 1);
            Measure();
            Plan(50, 1);
        }
        prompts.whileOpen = [&] { window->close(); };
        onPump = [&](long) {
            if (!asks)
                window->close(); // the first pump is the start exchange's
        };
        const int before = state.SampleCount;
        const World::Time began = world.Elapsed();
        Measure(); // asked about the first readings: No, and the close comes meanwhile
        QApplication::processEvents();
        EXPECT_EQ(state.SampleCount, before);
        EXPECT_LT(world.Elapsed() - began, 10s);
        EXPECT_FALSE(window->isVisible());
        if (asks) {
            EXPECT_EQ(prompts.messages.back().icon, Icon::Critical);
            EXPECT_EQ(prompts.messages.back().titleId, 101);
        }
        window.reset();
    }
}

/// Whatever comes at whatever moment of a run: at the end the port is closed, the timers are off, the
/// controls are idle, the rows agree with the counts, and the run has ended.
TEST_F(FrmMenuTest, EndsInOrderWhateverComesAtWhateverMoment)
{
    struct Event {
        const char* what;
        std::function<void()> happens;
        bool closes;
    };
    const Event events[] = {
        {"stop button", [this] { Click("Command1"); }, false},
        {"stop button twice",
         [this] {
             Click("Command1");
             Click("Command1");
         },
         false},
        {"close", [this] { window->close(); }, true},
        {"close and stop",
         [this] {
             window->close();
             Click("Command1");
         },
         true},
        {"start again by the menu", [this] { Trigger("MenuMeasureStart"); }, false},
        {"save", [this] { Trigger("MenuSave"); }, false},
        {"alarm reset", [this] { Click("Command2"); }, false},
        {"the adapter is pulled out, then close",
         [this] {
             port.Vanish();
             window->close();
         },
         true},
        {"exit by the menu", [this] { Trigger("MenuExit"); }, true},
    };
    for (const Event& event : events) {
        for (long k = 1, last = k; k <= last; k += 7) {
            SCOPED_TRACE(std::string(event.what) + " at pump " + std::to_string(k));
            WindowWorld::Plan(2, 1);
            Open();
            const long before = world.Pumps();
            bool happened = false;
            onPump = [&](long) {
                if (!happened && world.Pumps() - before == k) {
                    happened = true;
                    event.happens();
                }
            };
            Measure();
            onPump = nullptr;
            QApplication::processEvents();
            last = std::max(last, world.Pumps() - before);
            EXPECT_LT(world.Pumps() - before, 5000);
            ExpectIdle();
            EXPECT_EQ(window->isVisible(), !(event.closes && happened));
            if (HasFailure())
                return;
            window.reset();
            state.DataPresent = 0;
            state.SampleCount = 0;
        }
    }
}

// ---- limit inputs ---------------------------------------------------------------------------------------

struct LimitInputsTest : FrmMenuTest {
    LimitBox* Box(int number) const { return Find<LimitBox>(("Text" + std::to_string(number)).c_str()); }
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
    EXPECT_TRUE(Box(2)->hasFocus()); // the focus stays
    EXPECT_EQ(state.StelAlarm, 0);

    Type(2, "5");
    Press(Qt::Key_Return);
    EXPECT_EQ(Messages().size(), 1U);

    QTest::mousePress(Box(3), Qt::LeftButton, {}, QPoint(20, 5));
    QTest::mouseMove(Box(3), QPoint(24, 5)); // a hand is not that steady
    QTest::mouseRelease(Box(3), Qt::LeftButton, {}, QPoint(24, 5));
    EXPECT_EQ(Box(3)->selectedText(), QStringLiteral("10"));
}

TEST_F(LimitInputsTest, ShowTheStoredLimitAgainAfterTheMessage)
{
    Open();
    Type(3, "11"); // refused at the second digit: 1 is stored by then
    EXPECT_THAT(Messages(), ElementsAre("It is over the setting range. Redo setup.(0.001-10)"));
    EXPECT_EQ(prompts.messages[0].titleId, 161);
    EXPECT_EQ(Box(3)->text(), QStringLiteral("1"));
    EXPECT_EQ(state.CAlarm, 1);

    Type(3, "2");
    QTest::keyClick(Box(3), Qt::Key_Backspace); // an empty box changes nothing
    EXPECT_EQ(state.CAlarm, 2);
    Press(Qt::Key_Return);
    EXPECT_EQ(Box(3)->text(), QStringLiteral("2"));
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

TEST_F(LimitInputsTest, AreNotChangedByBeingFilled)
{
    state.TwaAlarm = 20; // out of range in the file; shown as it is, and told when it matters
    Open();
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_EQ(Box(1)->text(), QStringLiteral("20"));
    EXPECT_EQ(state.TwaAlarm, 20);
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

TEST_F(LimitInputsTest, TakeTheUsersDecimalSignAndThePoint)
{
    locale.decimalSign = ",";
    state.TwaAlarm = 0.5;
    Open();
    EXPECT_EQ(Box(1)->text(), QStringLiteral("0,5"));
    Type(1, "0,25");
    EXPECT_EQ(state.TwaAlarm, 0.25);
    Type(1, "0.125");
    EXPECT_EQ(state.TwaAlarm, 0.125);
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
