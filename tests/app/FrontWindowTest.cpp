#include "app/FrontWindow.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using Raise = FrontWindow::Raise;

TEST(FrontWindowTest, RaisesTheDialogBeforeTheMainWindowAndTheMainWindowOnceAfterIt)
{
    constexpr FrontWindow::Handle kMain = 11, kDialog = 12, kOther = 13;
    FrontWindow front;
    EXPECT_EQ(front.OnTick(0), Raise::Main) << "at the start, whatever is in front";
    EXPECT_EQ(front.OnTick(0), Raise::Nothing) << "once";
    front.RecordSecond(kDialog);
    EXPECT_EQ(front.OnTick(0), Raise::Nothing) << "0 is not the main window that was never activated";
    front.MainActivated(kMain);
    EXPECT_EQ(front.OnTick(kDialog), Raise::Nothing);
    EXPECT_EQ(front.OnTick(kOther), Raise::Nothing);
    EXPECT_EQ(front.OnTick(0), Raise::Nothing);
    for (int tick = 0; tick < 2; ++tick)
        EXPECT_EQ(front.OnTick(kMain), Raise::Second) << "each time";
    front.ClearSecond();
    EXPECT_EQ(front.OnTick(kOther), Raise::Main);
    EXPECT_EQ(front.OnTick(kMain), Raise::Nothing);
    front.RecordSecond(-9999); // says by itself that nothing is to be raised
    EXPECT_EQ(front.OnTick(kMain), Raise::Nothing);
}

} // namespace
} // namespace quorvane
