#include "app/WindowKeeper.h"

#include "app/QtWindowOrder.h"
#include "tests/support/World.h"

#include <QApplication>
#include <QEvent>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

/// Counts how often a window was brought to the top.
class Raises : public QObject {
public:
    explicit Raises(QWidget& window) { window.installEventFilter(this); }
    int Taken() { return std::exchange(count_, 0); }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count_ += event->type() == QEvent::ZOrderChange ? 1 : 0;
        return false;
    }

private:
    int count_ = 0;
};

struct WindowKeeperTest : testing::Test {
    World world{{}};
    WorldTimer timer4{world};
    QWidget main;
    QWidget other; // a window of this program that nobody watches
    Raises mainRaises{main};
    std::unique_ptr<QWidget> dialog = std::make_unique<QWidget>();
    Raises dialogRaises{*dialog};
    QtWindowOrder order;
    WindowKeeper keeper{main, timer4, order};

    void Tick() { static_cast<void>(world.Serve(500ms)); }
    static void Activate(QWidget& window)
    {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
};

TEST_F(WindowKeeperTest, KeepsADialogBeforeTheMainWindow)
{
    Activate(main);
    Tick();
    EXPECT_EQ(mainRaises.Taken(), 1); // at the start
    keeper.Watch(*dialog);
    Tick();
    EXPECT_EQ(dialogRaises.Taken(), 0); // it is not shown yet

    Activate(*dialog);
    Tick();
    EXPECT_EQ(dialogRaises.Taken(), 0);
    Activate(main);
    Tick();
    EXPECT_EQ(dialogRaises.Taken(), 1);
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    Activate(other);
    Tick();
    EXPECT_EQ(dialogRaises.Taken(), 0);
    EXPECT_TRUE(other.isActiveWindow());

    dialog->hide();
    Tick();
    Tick();
    EXPECT_EQ(mainRaises.Taken(), 1); // once
    Activate(*dialog);
    dialog.reset();
    Activate(main);
    Tick();
    EXPECT_EQ(mainRaises.Taken(), 1);
}

TEST_F(WindowKeeperTest, LeavesTheFocusWithAnotherProgram)
{
    Activate(main);
    main.hide(); // nothing of this program is active now, as when another one is in front
    QApplication::processEvents();
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    Tick();
    EXPECT_EQ(mainRaises.Taken(), 0);
    EXPECT_EQ(QApplication::activeWindow(), nullptr);
}

} // namespace
} // namespace quorvane
