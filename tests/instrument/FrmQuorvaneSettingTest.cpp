#include "tests/support/SettingWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kRange = "It is over the setting range. Redo setup.";
const std::string kWrong = "The setup is incorrect. Redo setup.";
const std::string kDone = "It completed.";
const std::string kLineError = "RS232C ERROR.";

struct FrmQuorvaneSettingTest : SettingWindow, testing::Test {};

TEST_F(FrmQuorvaneSettingTest, OpensThePortShowsTheStateAndKeepsTheMainWindowFromBeingUsed)
{
    OpenDialog();
    EXPECT_FALSE(window->isEnabled());
    EXPECT_FALSE(Dialog()->isModal());
    EXPECT_TRUE(Dialog()->isEnabled());
    EXPECT_TRUE(port.IsOpen());
    const std::pair<const char*, const char*> shown[] = {
        {"Text4", "2024/05/02"}, {"Text2", "1"},          {"Text3", "30"},      {"Text1", "100"},
        {"TotalHours", "7"},     {"TotalMinutes", "8"},   {"Text9", "0.0013"},  {"Text5", "2024/05/01"},
        {"Text6", "09:30:00"},   {"Text7", "2024/05/01"}, {"Text8", "09:30:00"}};
    for (const auto& [box, text] : shown)
        EXPECT_EQ(Shown(box), text) << box;
    const std::pair<const char*, int> lists[] = {{"Combo1", 24}, {"Combo2", 60}, {"Combo3", 60}};
    for (const auto& [list, count] : lists)
        EXPECT_EQ(Part<QComboBox>(list)->count(), count);
    EXPECT_EQ(Part<QComboBox>("Combo1")->currentText(), QStringLiteral("08"));
    EXPECT_EQ(Part<QComboBox>("Combo3")->currentText(), QStringLiteral("30"));
    EXPECT_FALSE(Part("Notice")->isVisible());

    Click("Command6");
    ExpectClosed();
    EXPECT_EQ(window->focusWidget(), Find<QWidget>("Command1")) << "as before";
    EXPECT_THAT(Sent(), IsEmpty());
    Trigger("MenuQuorvaneSetting"); // again, with the clock running
    ShowPage(1);
    Pause();
    EXPECT_EQ(Shown("Text7"), "2024/04/30");
    QTest::keyClick(Dialog(), Qt::Key_Escape);
    ExpectClosed();
    EXPECT_EQ(port.opened, 2);
}

TEST_F(FrmQuorvaneSettingTest, SpeaksEitherLanguage)
{
    const auto captions = [this] {
        std::vector<std::string> found{Dialog()->windowTitle().toStdString()};
        for (int page = 0; page < 3; ++page)
            found.push_back(Part<QTabWidget>("SSTab1")->tabText(page).toStdString());
        for (const char* label :
             {"Label5", "Label9", "Label1", "Label2", "Label8", "Label13", "Label14", "Label15", "Label16",
              "Label17", "Label3", "Label4", "Label6", "Label7", "Label12"})
            found.push_back(Part<QLabel>(label)->text().toStdString());
        for (const char* button : {"Command1", "Command6", "Command3", "Command4", "Refresh", "Command5"})
            found.push_back(Part<QPushButton>(button)->text().toStdString());
        return found;
    };
    state.SystemLanguageName = "English";
    OpenDialog();
    EXPECT_THAT(captions(), ElementsAre("Instrument Setting", "CALCULATION Setting", "Instrument Clock",
                                        "K-Factor Setting", "Sampling Time:", "Total Measure Time:",
                                        "Start Date", "Start Time:", "Number of Measure:", "System Date",
                                        "System Time", "Instrument Date", "Instrument Time",
                                        "Mass concentration conversion coefficient(K-Factor):", ":", ":", ":",
                                        "  ", "  ", "Send", "Close", "Send", ">>", "Refresh", "Send"));
    Click("Command6");
    table = StringTable(TableLanguage::Japanese);
    Trigger("MenuQuorvaneSetting");
    EXPECT_THAT(captions(), testing::Not(Contains(testing::HasSubstr("Se"))));
    for (const char* box : {"Text4", "Combo1", "Text2", "Text3", "Text1", "Text7", "Text9"})
        EXPECT_FALSE(Part(box)->accessibleName().isEmpty()) << box;
}

TEST_F(FrmQuorvaneSettingTest, ABoxIsCheckedWhenItIsLeftAndTheTotalFollowsWhatIsTaken)
{
    OpenDialog();
    struct Row {
        const char* box;
        const char* typed;
        const char* shown;
        std::string told;
        double count, hours, minutes, totalHours, totalMinutes;
    };
    const Row rows[] = {
        {"Text1", "30001", "100", kRange + "(1-30000)", 100, 1, 30, 7, 8},
        {"Text1", "7", "7", "", 7, 1, 30, 10, 30}, // 7 x 90 minutes
        {"Text2", "0", "0", "", 7, 0, 30, 3, 30},
        {"Text3", "0", "0", kWrong, 7, 0, 0, 0, 0},
        {"Text3", "20", "20", "", 7, 0, 20, 2, 20},
        {"Text2", "1", "1", "", 7, 1, 20, 9, 20},
        {"Text3", "0", "0", "", 7, 1, 0, 7, 0},
        {"Text2", "0", "0", "", 7, 0, 0, 0, 0}, // on the way to the minutes
        {"Text3", "20", "20", "", 7, 0, 20, 2, 20},
        {"Text4", "2024/13/01", "2024/13/01", kWrong, 7, 0, 20, 2, 20}, // stays, to be mended
        {"Text4", " 2024/12/31", "2024/12/31", "", 7, 0, 20, 2, 20},
    };
    for (const Row& row : rows) {
        Type(row.box, row.typed);
        EXPECT_THAT(Told(), IsEmpty());
        Tab();
        if (row.told.empty())
            EXPECT_THAT(Told(), IsEmpty()) << row.typed;
        else {
            EXPECT_EQ(prompts.messages.at(0).titleId, 161);
            EXPECT_EQ(prompts.messages.at(0).icon, Icon::Critical);
            EXPECT_THAT(Told(), ElementsAre(row.told)) << row.typed;
            EXPECT_TRUE(Part(row.box)->hasFocus());
        }
        EXPECT_EQ(Shown(row.box), row.shown);
        EXPECT_THAT(
            (std::vector{state.ProgramMeasureCount, state.ProgramMeasureHours, state.ProgramMeasureMinutes,
                         state.ProgramTotalHours, state.ProgramTotalMinutes}),
            ElementsAre(row.count, row.hours, row.minutes, row.totalHours, row.totalMinutes))
            << row.typed;
    }
    EXPECT_EQ(state.ProgramStartDate, "2024/12/31");
    QTest::keyClick(Part("Combo1"), Qt::Key_Down);
    EXPECT_EQ(state.ProgramStartTime, "09:15:30");
}

TEST_F(FrmQuorvaneSettingTest, SendsTheProgramAndNothingCanBePressedMeanwhile)
{
    OpenDialog();
    Type("Text1", "7"); // and straight to the button
    long busy = 0;
    onPump = [&](long) {
        busy += !Part("SSTab1")->isEnabled() && !Part("Command6")->isEnabled() &&
                Dialog()->cursor().shape() == Qt::BusyCursor;
    };
    ClickAtOnce("Command1");
    EXPECT_GE(busy, 90); // 2000 ms in looks 20 ms apart
    EXPECT_THAT(Told(), ElementsAre(kDone));
    EXPECT_THAT(Sent(), ElementsAre("P2024/05/02;08:15:30;01:30;00007\r\n"));
    ExpectReady();
    EXPECT_TRUE(Part("Command1")->hasFocus());

    silent = true;
    Click("Command1");
    EXPECT_THAT(Told(), ElementsAre(kLineError));
    ExpectReady();

    state.ProgramStartDate = "2024/04/30";
    Click("Command1");
    EXPECT_THAT(Told(), ElementsAre("Start date is invalid."));
    EXPECT_TRUE(Part("Text4")->hasFocus());
    Type("Text4", "2024/05/01");
    Click("Command1");
    EXPECT_THAT(Told(), ElementsAre("Start time is invalid."));
    EXPECT_TRUE(Part("Combo1")->hasFocus());
}

TEST_F(FrmQuorvaneSettingTest, EnterTakesWhatWasTypedAndPressesNothingButTheButtonWithTheFocus)
{
    OpenDialog();
    Type("Text1", "7");
    QTest::keyClick(Part("Text1"), Qt::Key_Return);
    EXPECT_EQ(state.ProgramMeasureCount, 7);
    Type("Text1", "0");
    QTest::keyClick(Part("Text1"), Qt::Key_Return);
    EXPECT_THAT(Told(), ElementsAre(kRange + "(1-30000)"));
    EXPECT_THAT(Sent(), IsEmpty());
    EXPECT_TRUE(Dialog()->isVisible());
    Part("Command1")->setFocus();
    QTest::keyClick(Part("Command1"), Qt::Key_Return);
    EXPECT_THAT(Told(), ElementsAre(kDone));
}

TEST_F(FrmQuorvaneSettingTest, BothClocksRunWhileTheirPageIsShownAndTheInstrumentsCanBeSet)
{
    OpenDialog();
    ShowPage(1);
    Pause();
    EXPECT_EQ(Shown("Text6"), "09:30:01");
    EXPECT_EQ(Shown("Text7") + " " + Shown("Text8"), "2024/04/30 23:59:58");
    Click("Command4"); // has no action
    Click("Refresh");
    EXPECT_THAT(Sent(), ElementsAre("M\r\n", "M\r\n"));
    Click("Command3");
    EXPECT_THAT(Sent(), Contains("T2024;05;01;09;30;01\r\n"));
    EXPECT_EQ(Part<QLabel>("Label23")->text(), QStringLiteral("T2024;05;01;09;30;01"));
    EXPECT_THAT(Told(), ElementsAre(kDone));
    ShowPage(0);
    Sent();
    static_cast<void>(world.Serve(3s));
    EXPECT_THAT(Sent(), IsEmpty());
}

TEST_F(FrmQuorvaneSettingTest, TheKFactorsUpperLimitHoldsWhileTypingTheLowerWhenLeaving)
{
    OpenDialog();
    ShowPage(2);
    Type("Text9", "0.01");
    EXPECT_THAT(Told(), ElementsAre(kRange + "(0.0001-0.0099)"));
    EXPECT_EQ(Shown("Text9"), "0"); // the last that was stored on the way
    Type("Text9", "0.0012");
    EXPECT_EQ(state.KFactor, 0.0012);
    bool busy = false;
    onPump = [&](long) { busy |= !Part("Command5")->isEnabledTo(Part("KFactorPage")); };
    Click("Command5");
    EXPECT_TRUE(busy);
    EXPECT_THAT(Sent(), ElementsAre("E1.2\r\n"));
    EXPECT_THAT(Told(), ElementsAre(kDone));
    state.KFactor = 0.00005; // as a settings file may hold it
    Click("Command5");
    EXPECT_THAT(Told(), ElementsAre(kRange + "(0.0001-0.0099)"));
    EXPECT_EQ(Shown("Text9"), "0.00005");
    EXPECT_TRUE(Part("Text9")->hasFocus());
    Type("Text9", "0");
    EXPECT_EQ(state.KFactor, 0);
    EXPECT_THAT(Told(), IsEmpty());
    Tab();
    EXPECT_THAT(Told(), ElementsAre(kRange + "(0.0001-0.0099)"));
    EXPECT_TRUE(Part("Text9")->hasFocus());
    Dialog()->close();
    ExpectClosed();
    EXPECT_EQ(state.KFactor, 0.0012); // what stood on the way does not stay
}

TEST_F(FrmQuorvaneSettingTest, AProgramIsKeptInAFileAndComesBack)
{
    OpenDialog();
    Type("Text1", "7");
    prompts.saveNames = {"morning.ini"};
    Click("CommandSave");
    Type("Text1", "9");
    Type("Text4", "2024/07/01");
    Tab();
    prompts.openNames = {"morning.ini"};
    Click("CommandOpen");
    EXPECT_EQ(Shown("Text1") + " " + Shown("Text4"), "7 2024/05/02");
    EXPECT_EQ(Shown("TotalHours"), "10");
    EXPECT_EQ(Label("DateHint"), "yyyy/MM/dd");
    EXPECT_THAT(Told(), IsEmpty());

    files.files["empty.ini"] = "[Something else]\r\n";
    prompts.openNames = {"empty.ini"};
    prompts.answers = {Answer::Yes};
    Click("CommandOpen");
    EXPECT_EQ(Part<QComboBox>("Combo1")->currentIndex(), -1);
    EXPECT_THAT(Label("DateHint"), testing::HasSubstr("No date is sent"));
    Told();
    Click("Command1"); // what a file brought is checked before it is sent
    EXPECT_THAT(Told(), ElementsAre(kWrong));
    EXPECT_THAT(Sent(), IsEmpty());
    files.replaceFault = FileFault{FileFaultKind::NoSpace, ""};
    prompts.saveNames = {"full.ini"};
    Click("CommandSave");
    EXPECT_EQ(Told().size(), 1U);
}

TEST_F(FrmQuorvaneSettingTest, WithoutAnInstrumentEverySendCompletesAndNoPortIsTouched)
{
    state.RunMode = false;
    OpenDialog();
    EXPECT_TRUE(Part("Notice")->isVisible());
    const std::pair<int, const char*> sends[] = {{0, "Command1"}, {1, "Command3"}, {2, "Command5"}};
    state.ProgramStartDate = "2024/04/30"; // nobody minds
    for (const auto& [page, button] : sends) {
        ShowPage(page);
        Click(button);
        EXPECT_THAT(Told(), ElementsAre(kDone)) << button;
    }
    EXPECT_EQ(Label("Label23"), "") << "nothing was sent";
    EXPECT_EQ(port.opened, 0);
    Click("Command6");
    ExpectClosed();
}

} // namespace
} // namespace quorvane
