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

TEST_F(FrmQuorvaneSettingClosingTest, ClosingInsideAnyWaitEndsTheExchangeOnce)
{
    struct Row {
        int page;
        const char* button;
        bool silent; // then the link check that follows is met as well
    };
    const Row rows[] = {{0, "Command1", false}, {0, "Command1", true}, {1, "Refresh", true}};
    for (const Row& row : rows) {
        for (const long after : {1L, 10L, 150L}) {
            Open();
            Trigger("MenuQuorvaneSetting");
            silent = row.silent;
            ShowPage(row.page);
            const long until = world.Pumps() + after;
            bool cut = false;
            onPump = [&](long pump) {
                if (pump != until)
                    return;
                cut = true;
                if (after % 20 == 10)
                    window->close(); // the program is to end: the dialog goes first
                else
                    Dialog()->close();
            };
            Told();
            Click(row.button);
            Settle();
            onPump = nullptr;
            if (!cut)
                continue; // it was over before
            ExpectClosed();
            EXPECT_THAT(Told(), IsEmpty()) << row.button << after;
            EXPECT_EQ(window->isVisible(), after % 20 != 10) << row.button << after;
        }
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
