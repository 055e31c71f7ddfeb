#include "app/CheckedBox.h"
#include "graph/ChartWidget.h"
#include "measure/LampView.h"
#include "tests/support/Operator.h"
#include "tests/support/PaintedTexts.h"
#include "tests/support/WindowWorld.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QPrintPreviewWidget>
#include <QSplitter>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using testing::ElementsAre;

constexpr const char* kDataFile =
    "Program Ver.,Quorvane_Ver.0100\r\nDate,2024/05/01\r\nData,2\r\nK Factor,0.0012\r\n"
    "Time,Relative Concentration([CPM]),Mass Concentration([mg/m3]),"
    "Relative Concentration(Integrated Value[CPM]),Mass Concentration(Integrated Value[mg/m3])\r\n"
    "23:59:58,12,0.015,12,0.015\r\n00:00:08,14,0.018,26,0.033\r\n";

struct FrmMenuCommandsTest : testing::Test, WindowWorld {
    FrmMenuCommandsTest()
    {
        state.MassCFlg = true;
        files.files["old.csv"] = kDataFile;
    }
    [[nodiscard]] ChartWidget& Chart() const { return *Find<ChartWidget>("TChart1"); }
    void ClickTool(const char* action)
    {
        QTest::mouseClick(Find<QToolBar>("Toolbar1")->widgetForAction(Find<QAction>(action)), Qt::LeftButton);
        QApplication::processEvents();
    }
};

TEST_F(FrmMenuCommandsTest, ToolbarButtonsAreToldApartByTheirKeys)
{
    Open();
    Measure();
    ClickTool("ToolSave");
    EXPECT_EQ(prompts.saveQuestions.size(), 1U);
    prompts.answers = {Answer::No};
    ClickTool("ToolOpen");
    EXPECT_EQ(prompts.openQuestions.size(), 1U);
    ClickTool("ToolHelp");
    EXPECT_TRUE(Find<QDialog>("FrmHelp")->isVisible());
    ClickTool("ToolPrint");
    ASSERT_NE(Find<QDialog>("FrmPrint"), nullptr);
    Find<QDialog>("FrmPrint")->close();
    auto* const stranger = Find<QToolBar>("Toolbar1")->addAction(QStringLiteral("save"));
    stranger->setData(QStringLiteral("save")); // the key is "Save"
    stranger->trigger();
    QApplication::processEvents();
    EXPECT_EQ(prompts.saveQuestions.size(), 1U);
}

TEST_F(FrmMenuCommandsTest, WhileARunGoesOnOnlyItsPictureAndItsEndCanBeHad)
{
    Open();
    bool checked = false;
    onPump = [&](long) {
        if (checked || Rows() < 2)
            return;
        checked = true;
        for (const char* action :
             {"MenuOpen", "ToolOpen", "MenuSave", "ToolSave", "MenuQuorvaneSetting", "MenuMeasureSetting",
              "MenuGraphSetting", "MenuRS232C", "MenuOption", "MenuZoom", "MenuWholeRun"})
            EXPECT_FALSE(Enabled(action)) << action;
        EXPECT_FALSE(Find<QPushButton>("Command3")->isEnabled());
        EXPECT_FALSE(Find<QPushButton>("Command4")->isEnabled());
        for (const char* action : {"MenuPrint", "ToolPrint", "MenuCopyChart", "MenuGuide", "MenuVersion"})
            EXPECT_TRUE(Enabled(action)) << action;
    };
    EXPECT_FALSE(Enabled("MenuPrint")); // there is nothing to print yet
    Measure();
    EXPECT_TRUE(checked);
    EXPECT_TRUE(Find<QPushButton>("Command3")->isEnabled());
    EXPECT_TRUE(Enabled("MenuGraphSetting"));
}

TEST_F(FrmMenuCommandsTest, PictureCommandsMakeWhatTheySay)
{
    Open();
    Measure();
    Trigger("MenuSaveImage");
    ASSERT_EQ(prompts.saveQuestions.size(), 1U);
    EXPECT_THAT(prompts.saveQuestions[0].extensions, ElementsAre("png", "pdf"));
    QApplication::clipboard()->clear();
    Trigger("MenuCopyChart");
    EXPECT_FALSE(QApplication::clipboard()->image().isNull());
    EXPECT_EQ(window->findChild<QPrintPreviewWidget*>(), nullptr);
    Trigger("MenuPreview");
    EXPECT_NE(window->findChild<QPrintPreviewWidget*>(), nullptr);
}

/// Whatever served the events itself would do so inside the wait for a reading and hold it up.
TEST_F(FrmMenuCommandsTest, ReadingsComeOnWhileSomethingIsOpen)
{
    const std::function<void()> openers[] = {
        [this] { Trigger("MenuVersion"); },
        [this] { Trigger("MenuPrint"); },
        [this] {
            QContextMenuEvent click(QContextMenuEvent::Mouse, {5, 5}, {5, 5});
            QApplication::sendEvent(Find<LiveTable>("vaSpread1")->viewport(), &click);
        },
    };
    const auto opened = [this]() -> QWidget* {
        auto* const menu = QApplication::activePopupWidget();
        return menu != nullptr ? menu : window->findChild<QDialog*>();
    };
    for (const auto& opens : openers) {
        Open();
        QPointer<QWidget> inFront;
        onPump = [&](long) {
            if (inFront == nullptr && state.SampleCount == 2 && Rows() == 1) { // the second is awaited
                QTimer::singleShot(3000, window.get(), [&] { opened()->close(); });
                opens();
                inFront = opened();
            }
        };
        prompts.answers = {Answer::No};
        Measure();
        onPump = nullptr;
        EXPECT_TRUE(inFront != nullptr && inFront->isVisible());
        ExpectIdle();
        EXPECT_EQ(Rows(), 3);
        window.reset(); // and what is open with it
        EXPECT_EQ(inFront, nullptr);
        state.DataPresent = 0;
    }
}

// ---- chart ----------------------------------------------------------------------------------------------

TEST_F(FrmMenuCommandsTest, TheChartFollowsTheRunAndAllComesBackWhenTheNextCannotStart)
{
    Open();
    EXPECT_EQ(Chart().LeftMaximum(), 1);
    Measure();
    EXPECT_EQ(Chart().LeftMaximum(), 1.2 * 1.25);
    const ChartTime first = ToChartTime(arrays.Moment[1]);
    EXPECT_EQ(Chart().BottomMinimum(), first);
    EXPECT_EQ(Chart().BottomMaximum(), first + 0.0006);
    state.DataSaved = 1;
    port.openFault = PortFault{PortFaultKind::Busy, "taken"};
    prompts.whileOpen = [this] { EXPECT_EQ(Chart().LeftMaximum(), 1); }; // emptied for the run that fails
    Measure();
    prompts.whileOpen = nullptr;
    ExpectIdle();
    EXPECT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(Chart().LeftMaximum(), 1.2 * 1.25); // and the rest of what was there
    EXPECT_EQ(Rows(), 3);
    EXPECT_EQ(Label("ConcNow"), "1.250");
}

TEST_F(FrmMenuCommandsTest, ZoomChangesCaptionAndPointerAndIsOffWhenARunStarts)
{
    Open();
    Click("Command4");
    EXPECT_EQ(Find<QPushButton>("Command4")->text(), QStringLiteral("Zoom Off"));
    EXPECT_EQ(window->cursor().shape(), Qt::BitmapCursor);
    Press(Qt::Key_F6);
    EXPECT_EQ(Find<QPushButton>("Command4")->text(), QStringLiteral("Zoom On"));
    EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);

    Trigger("MenuZoom");
    Measure();
    EXPECT_EQ(Find<QAction>("MenuZoom")->text(), QStringLiteral("Zoom On"));
    EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(FrmMenuCommandsTest, SpanAndWholeRunMoveTheTimeAxis)
{
    Open();
    Measure();
    const ChartTime first = ToChartTime(arrays.Moment[1]);
    Click("Span3");
    EXPECT_EQ(Chart().BottomMaximum(), first + 0.04);
    Press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_TRUE(Find<QToolButton>("Span2")->isChecked());
    EXPECT_EQ(Chart().BottomMaximum(), first + 0.007);
    Click("Command3");
    EXPECT_EQ(Chart().BottomMinimum(), first);
    EXPECT_EQ(Chart().BottomMaximum(), ToChartTime(arrays.Moment[3]));
}

TEST_F(FrmMenuCommandsTest, TheChartTellsTheReadingUnderTheMouseAndFollowsTheLimits)
{
    state.AlarmTWAFlg = true;
    state.TwaAlarm = 1;
    Open();
    Measure();
    const auto picture = [this] {
        QApplication::processEvents();
        return Chart().grab().toImage();
    };
    const QImage before = picture();
    Find<CheckedBox>("Text1")->selectAll();
    QTest::keyClicks(Find<CheckedBox>("Text1"), QStringLiteral("0.5"));
    const QImage lower = picture();
    EXPECT_NE(lower.copy(Chart().CurveArea()), before.copy(Chart().CurveArea()));
    QTest::mouseMove(&Chart(), Chart().CurveArea().center());
    EXPECT_NE(picture(), lower);
}

// ---- settings -------------------------------------------------------------------------------------------

TEST_F(FrmMenuCommandsTest, GraphSettingsAskAboutUnsavedReadingsAndRebuildTheChart)
{
    Open();
    Measure();
    prompts.answers = {Answer::Yes};
    prompts.saveNames = {"first.csv"};
    const auto click = [](QDialog& dialog, const char* name) {
        QTest::mouseClick(dialog.findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton, {}, {8, 8});
    };
    Operator person({[&](QDialog& dialog) {
        EXPECT_TRUE(files.files.contains("first.csv"));
        click(dialog, "Check3");
        click(dialog, "Check1");
        click(dialog, "Command1");
    }});
    Trigger("MenuGraphSetting");
    EXPECT_THAT(Messages(), ElementsAre("Data is not saved. Do you save?"));
    EXPECT_TRUE(state.RelativeCFlg);
    EXPECT_FALSE(state.MassCFlg);
    EXPECT_EQ(Chart().LeftMaximum(), 50); // three readings of 12 CPM
    EXPECT_EQ(Rows(), 3);
}

TEST_F(FrmMenuCommandsTest, MeasureSettingsPlanTheNextRun)
{
    Open();
    Operator person({[](QDialog& dialog) {
        auto* const number = dialog.findChild<QLineEdit*>(QStringLiteral("Text1"));
        number->selectAll();
        QTest::keyClicks(number, QStringLiteral("2"));
        QTest::keyClick(number, Qt::Key_Return);
    }});
    Trigger("MenuMeasureSetting");
    EXPECT_EQ(state.TotalSamples, 2);
    Measure();
    EXPECT_EQ(Rows(), 2);
    state.TotalSamples = 50; // of the next run
    Pause();
    EXPECT_EQ(Label("StatusSample"), "Sample 2 of 2");
}

TEST_F(FrmMenuCommandsTest, ReadingsAreMarkedByTheModeTheyWereTakenIn)
{
    state.RunMode = false;
    Open();
    const auto* const notice = Find<QLabel>("SimulatedNotice");
    const auto choose = [](const char* mode) {
        return [mode](QDialog& dialog) {
            dialog.findChild<QAbstractButton*>(QLatin1String(mode))->click();
            QTest::keyClick(&dialog, Qt::Key_Return);
        };
    };
    const auto chartSaysSo = [this] {
        return PaintedTexts(Chart().Frozen({900, 500})).join(QString()).contains(u"SIMULATED"_qs);
    };
    Operator person({choose("Option1"), choose("Option2"), choose("Option1"), choose("Option2")});
    for (const bool simulated : {true, false}) { // before there are any, as the next ones will be
        EXPECT_EQ(notice->isVisible(), simulated);
        EXPECT_EQ(chartSaysSo(), simulated);
        Trigger("MenuOption");
    }
    Measure();
    Trigger("MenuOption");
    EXPECT_TRUE(state.RunMode);
    EXPECT_TRUE(notice->isVisible()) << "the readings are still the made-up ones";
    EXPECT_EQ(Label("StatusMode"), "Instrument");
    prompts.answers = {Answer::No};
    Measure();
    EXPECT_FALSE(notice->isVisible());
    Trigger("MenuOption");
    EXPECT_FALSE(notice->isVisible()) << "these were measured";
}

TEST_F(FrmMenuCommandsTest, PortsAreReadAgainWhenADeviceComes)
{
    Open();
    Operator person({[this](QDialog& dialog) {
        const auto* const list = dialog.findChild<QComboBox*>(QStringLiteral("Combo2"));
        EXPECT_EQ(list->count(), 0);
        ports.plugged = {{1, {}}, {5, {}}};
        devices.changed = true;
        Pause();
        EXPECT_EQ(list->count(), 2);
        dialog.reject();
    }});
    Trigger("MenuRS232C");
    EXPECT_THAT(Messages(), ElementsAre("RS232C Port is not found."));
}

TEST_F(FrmMenuCommandsTest, LeavesNoAboutBoxThatIsDisabledWithTheWindow)
{
    Open();
    Trigger("MenuVersion");
    EXPECT_NE(Find<QDialog>("FrmHelp"), nullptr);
    Trigger("MenuQuorvaneSetting");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Find<QDialog>("FrmHelp"), nullptr);
    Find<QDialog>("FrmQuorvaneSetting")->reject();
}

// ---- opening --------------------------------------------------------------------------------------------

TEST_F(FrmMenuCommandsTest, OpenedReadingsFillTableAndChart)
{
    state.CAlarm = state.TwaAlarm = state.StelAlarm = 1.25;
    Open();
    Measure();
    EXPECT_TRUE(Find<LampView>("Image3")->IsLit());
    Click("Command4");
    prompts.answers = {Answer::No};
    prompts.openNames = {"old.csv"};
    Trigger("MenuOpen");
    EXPECT_EQ(Rows(), 2);
    EXPECT_EQ(Cell(1, 0), "00:00:08");
    EXPECT_EQ(Cell(1, 2), "0.018");
    EXPECT_EQ(Cell(1, 3), ""); // the file has no averages
    EXPECT_NEAR((Chart().BottomMaximum() - Chart().BottomMinimum()) * 86400, 10, 0.001); // across midnight
    EXPECT_FALSE(Find<LampView>("Image3")->IsLit());
    EXPECT_EQ(Find<QPushButton>("Command4")->text(), QStringLiteral("Zoom On"));
    EXPECT_EQ(state.TotalSamples, 3);
    EXPECT_EQ(state.DataPresent, 1);
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_THAT(window->windowTitle().toStdString(), testing::StartsWith("old.csv"));
    EXPECT_EQ(Label("StatusSample"), "2 readings");
    EXPECT_NE(Label("ConcNow"), "0.018"); // nothing is measured now

    Measure(); // without a question: they are in a file
    EXPECT_EQ(Rows(), 3);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Quorvane Software[*]"));
}

TEST_F(FrmMenuCommandsTest, AFileThatCannotBeOpenedOrIsNotWantedTakesNothingAway)
{
    Open();
    Measure();
    files.files["photo.csv"] = std::string("\x89PNG\r\n\x1a\n\0\0", 10);
    prompts.answers = {Answer::Yes}; // save first, but then cancelled: nothing is opened
    Trigger("MenuOpen");
    EXPECT_TRUE(prompts.openQuestions.empty());
    prompts.answers = {Answer::No};
    prompts.openNames = {"photo.csv"};
    Trigger("MenuOpen");
    EXPECT_THAT(Messages().back(), testing::StartsWith("Data File can not load."));
    EXPECT_EQ(Rows(), 3);
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(FrmMenuCommandsTest, AFileCanBeDroppedOnTheWindow)
{
    Open();
    Measure();
    prompts.answers = {Answer::No};
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/data/walk.csv"))});
    files.files[QUrl::fromLocalFile(QStringLiteral("/data/walk.csv")).toLocalFile().toStdString()] =
        kDataFile;
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    QApplication::processEvents();
    EXPECT_EQ(Rows(), 2);
    EXPECT_THAT(Messages(), ElementsAre("Data is not saved. Do you save?"));
}

// ---- what the window remembers --------------------------------------------------------------------------

TEST_F(FrmMenuCommandsTest, RemembersItsLooksInAFileOfTheirOwn)
{
    Open();
    auto* const columns = Find<LiveTable>("vaSpread1")->horizontalHeader();
    window->resize(1180, 760);
    columns->resizeSection(2, 133);
    Click("Span4");
    window->close();
    window.reset();
    Open();
    EXPECT_EQ(window->size(), QSize(1180, 760));
    EXPECT_EQ(Find<LiveTable>("vaSpread1")->columnWidth(2), 133);
    EXPECT_TRUE(Find<QToolButton>("Span4")->isChecked());
    window.reset();
    for (const char* damage :
         {"", "Window=", "Columns=1,2\r\nSpan=9\r\n",
          "Columns=9999999,-1,0,x,,1e9,5\r\nWindow=!!!\r\nDivision=AAAA\r\nSpan=-1",
          // 9,962,372 pixels wide; parts of 905,969,663 one above the other; none at all
          "Window=AdnQywADAAAAAAAAAAAAAACYA4QAAAJYAAAAAgAAAAIAmAOEAAACWAAAAAAAAAAAAyAAAAACAAAAAgCYA4QA"
          "AAJY\r\nDivision=AAAA/wAAAAEAAAACAAABAAAAAQABNf///wEAAAACAA==",
          "Division=0,0", "Division=-5,2147483647"}) {
        files.files["app/QuorvaneWindow.ini"] = damage;
        Open();
        EXPECT_TRUE(window->isVisible()) << damage;
        EXPECT_TRUE(Find<QToolButton>("Span1")->isChecked()) << damage;
        EXPECT_LT(Find<LiveTable>("vaSpread1")->columnWidth(0), 500) << damage;
        EXPECT_LT(window->width(), 3000) << damage;
        EXPECT_EQ(Find<QSplitter>("Splitter")->orientation(), Qt::Horizontal) << damage;
        EXPECT_LT(Find<QSplitter>("Splitter")->handleWidth(), 20) << damage;
        EXPECT_GT(Chart().width(), 100) << damage;
        window.reset();
    }
}

} // namespace
} // namespace quorvane
