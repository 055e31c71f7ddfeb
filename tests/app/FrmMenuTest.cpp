#include "app/CheckedBox.h"
#include "app/ProgramFont.h"
#include "measure/LampView.h"
#include "measure/LiveTable.h"
#include "tests/support/WindowWorld.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tuple>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::Not;

struct FrmMenuTest : testing::Test, WindowWorld {};

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
    EXPECT_EQ(Find<CheckedBox>("Text1")->text(), QStringLiteral("0.05"));
    EXPECT_EQ(Find<CheckedBox>("Text2")->text(), QStringLiteral("1.5"));
    EXPECT_EQ(Find<CheckedBox>("Text3")->text(), QStringLiteral("10"));
    EXPECT_EQ(window->focusWidget(), Find<QWidget>("Command1"));
    EXPECT_EQ(Label("StatusPort"), "COM1");
    EXPECT_FALSE(Find<QLabel>("SimulatedNotice")->isVisible());
    names.present = false;
    devices.changed = true; // the adapter is pulled out
    Pause();
    EXPECT_EQ(Label("StatusPort"), "COM1 (not connected)");
}

TEST_F(FrmMenuTest, SaysThatReadingsAreSimulatedWhereNobodyCanOverlookIt)
{
    state.RunMode = false;
    Open();
    EXPECT_TRUE(Find<QLabel>("SimulatedNotice")->isVisible());
    EXPECT_THAT(Label("SimulatedNotice"), testing::StartsWith("SIMULATED"));
    EXPECT_EQ(Label("StatusMode"), "SIMULATED");
    window->Announce(std::string(500, 'x')); // neither a long path nor a long field widens the window
    Find<QLabel>("StatusState")->setText(QString(500, u'x'));
    Find<QLabel>("StatusPort")->setText(QString(500, u'x'));
    Find<QLabel>("StatusPort")->setVisible(true);
    EXPECT_LE(window->minimumSizeHint().width(), 1024);
    Click("Command1");
    EXPECT_EQ(Rows(), 3);
    EXPECT_EQ(port.opened, 0);
}

TEST_F(FrmMenuTest, SpeaksTheLanguageThatTheSettingsChoose)
{
    table = StringTable(TableLanguage::Japanese);
    state.SystemLanguageName = "Japanese";
    for (const auto& [mode, caption, language] : {std::tuple(0, "測定開始", TableLanguage::Japanese),
                                                  std::tuple(1, "Measure Start", TableLanguage::English)}) {
        state.LanguageMode = static_cast<std::int16_t>(mode);
        Open();
        EXPECT_EQ(Caption(), caption);
        EXPECT_EQ(window->font().families(), ProgramFont(language).families());
        EXPECT_EQ(Find<LiveTable>("vaSpread1")->font().families().mid(1), window->font().families());
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
        EXPECT_FALSE(Find<CheckedBox>("Text2")->isEnabled());
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

TEST_F(FrmMenuTest, GreysAndWipesTheAgeOfTheNewestReadingWhileTheWaitGoesOn)
{
    Open();
    const auto look = [this] {
        return Label("StatusAge") + (Find<QWidget>("StatusAge")->isEnabled() ? "" : " (grey)") +
               (Find<QWidget>("ConcNow")->isEnabled() ? "" : ", old values");
    };
    std::vector<std::string> seen;
    GiveLines(1);
    bool begun = false;
    onPump = [&](long) {
        if (Rows() == 0 || std::exchange(begun, true))
            return; // or the first reading has just been taken
        for (const auto delay : {500ms, 2500ms, 8500ms, 22000ms, 30900ms})
            world.After(delay, [&] { seen.push_back(look()); });
        world.After(30s, [&] { port.Arrive(Line(2)); });
        world.After(40s, [&] { Click("Command1"); });
    };
    Click("Command1");
    EXPECT_THAT(seen, ElementsAre("Last reading 0 s ago", "Last reading 2 s ago (grey), old values",
                                  "Last reading 8 s ago (grey), old values",
                                  "No data from the instrument, old values", "Last reading 0 s ago"));
    EXPECT_EQ(look(), ""); // the run has ended, and its values are not old
    EXPECT_EQ(Rows(), 2);
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

TEST_F(FrmMenuTest, PressesInQuickSuccessionAreOne)
{
    Plan(5, 1);
    Open();
    std::optional<World::Time> letGo; // when the operator's finger leaves the start button
    onPump = [&](long) {
        if (Rows() == 0)
            Click("Command1"); // the rest of a double or triple click, a key held down: the run goes on
        else if (!letGo)
            letGo = world.Elapsed();
        else if (world.Elapsed() > *letGo + 1s)
            Press(Qt::Key_F5, Qt::ShiftModifier); // held down to the end: the stop exchange is not given up
    };
    MeasureAtOnce();
    ExpectIdle();
    EXPECT_EQ(Rows(), 2);
    EXPECT_THAT(port.sent, ElementsAre("N\r\n", "N\r\n", "D\r\n", "N\r\n", "N\r\n"));
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
    Pause();
    onPump = [this](long) { EXPECT_FALSE(Enabled("MenuSave")); }; // the first is about to be replaced
    MeasureAtOnce();
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

} // namespace
} // namespace quorvane
