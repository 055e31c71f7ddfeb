#include "tests/support/SettingWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kRange = "It is over the setting range. Redo setup.";
const std::string kDone = "It completed.";

struct FrmQuorvaneSettingClosingTest : SettingWindow, testing::Test {};

TEST_F(FrmQuorvaneSettingClosingTest, ARefusedBoxKeepsItsPageAndTheCloseButtonButNotTheCloseBox)
{
    OpenDialog();
    Type("Text1", "0");
    ShowPage(1);
    EXPECT_THAT(Told(), ElementsAre(kRange + "(1-30000)"));
    EXPECT_EQ(Part<QTabWidget>("SSTab1")->currentIndex(), 0);
    Type("Text1", "0");
    ClickAtOnce("Command6");
    EXPECT_THAT(Told(), ElementsAre(kRange + "(1-30000)"));
    EXPECT_TRUE(Dialog()->isVisible());
    Type("Text1", "12");
    Type("Text2", "0");
    Type("Text3", "0"); // on the way to another time
    Dialog()->close();
    ExpectClosed();
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_EQ(state.ProgramMeasureCount, 12);
    EXPECT_THAT((std::vector{state.ProgramMeasureMinutes, state.ProgramTotalHours}), ElementsAre(30, 6));

    state.KFactor = 0; // as a settings file may have it
    Trigger("MenuQuorvaneSetting");
    ShowPage(2);
    Part("Text9")->setFocus();
    ShowPage(0);
    EXPECT_THAT(Told(), ElementsAre(kRange + "(0.0001-0.0099)"));
    EXPECT_TRUE(Part("Text9")->hasFocus());
}

TEST_F(FrmQuorvaneSettingClosingTest, AClosedPortIsToldOnceAndEachSendTriesAgain)
{
    port.openFault = PortFault{PortFaultKind::Busy, ""};
    OpenDialog();
    EXPECT_THAT(Told(), ElementsAre("COM1 is not used."));
    EXPECT_TRUE(Dialog()->isVisible());
    EXPECT_THAT(Label("LinkStatus"), testing::StartsWith("COM1 is not open."));
    Click("Command1");
    EXPECT_THAT(Told(), ElementsAre("COM1 is not used."));
    ExpectReady();
    port.openFault.reset();
    Click("Command1");
    EXPECT_THAT(Told(), ElementsAre(kDone));
    EXPECT_EQ(Label("LinkStatus"), "COM1 is open.");
    Click("Command6");
    port.openFault = PortFault{PortFaultKind::Busy, ""};
    prompts.whileOpen = [this] { window->close(); };
    Trigger("MenuQuorvaneSetting");
    prompts.whileOpen = nullptr;
    ExpectClosed();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmQuorvaneSettingClosingTest, ACloseInsideAWaitEndsTheExchange)
{
    for (const bool ofMainWindow : {false, true}) { // then the program is to end, and the dialog goes first
        Open();
        Trigger("MenuQuorvaneSetting");
        const long middle = world.Pumps() + 10;
        onPump = [&](long pump) {
            if (pump == middle)
                (ofMainWindow ? static_cast<QWidget*>(window.get()) : Dialog())->close();
        };
        Click("Command1");
        Settle();
        onPump = nullptr;
        ExpectClosed();
        EXPECT_THAT(Told(), IsEmpty());
        EXPECT_EQ(window->isVisible(), !ofMainWindow);
    }
}

TEST_F(FrmQuorvaneSettingClosingTest, ACloseBehindAMessageWaitsForIt)
{
    OpenDialog();
    prompts.whileOpen = [this] {
        Dialog()->close();
        EXPECT_TRUE(Dialog()->isVisible());
    };
    Type("Text1", "0");
    Tab();
    ExpectClosed();
    EXPECT_EQ(Told().size(), 1U);
}

} // namespace
} // namespace quorvane
