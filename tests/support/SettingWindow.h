#pragma once

#include "tests/support/WindowWorld.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <chrono>
#include <string>
#include <vector>

namespace quorvane {

/// The instrument settings opened from the main window on 1 May 2024, 09:30, with an instrument that answers
/// everything at once unless it is silent.
struct SettingWindow : WindowWorld {
    SettingWindow()
    {
        state.ProgramStartDate = "2024/05/02";
        state.ProgramStartTime = "08:15:30";
        state.ProgramMeasureCount = 100;
        state.ProgramMeasureHours = 1;
        state.ProgramMeasureMinutes = 30;
        state.ProgramTotalHours = 7; // not what count and times make of it
        state.ProgramTotalMinutes = 8;
        state.KFactor = 0.0013;
        port.onOutput = [this, linkCheck = port.onOutput](const std::string& text) {
            linkCheck(text);
            const char letter = text[0];
            if (silent || letter == 'N')
                return;
            const std::string record = letter == 'M' ? "2024/04/30 23:59:58\r\n" : "";
            port.Deliver(std::chrono::milliseconds(20), std::string("A") + letter + "\r\n" + record);
        };
    }

    void OpenDialog()
    {
        Open();
        Trigger("MenuQuorvaneSetting");
        ASSERT_NE(Dialog(), nullptr);
        static_cast<void>(QTest::qWaitForWindowActive(Dialog()));
    }
    [[nodiscard]] QDialog* Dialog() const
    {
        return window->findChild<QDialog*>(QStringLiteral("FrmQuorvaneSetting"));
    }
    template <typename Control = QWidget>
    [[nodiscard]] Control* Part(const char* name) const
    {
        return Dialog()->findChild<Control*>(QLatin1String(name));
    }
    [[nodiscard]] std::string Shown(const char* box) const
    {
        return Part<QLineEdit>(box)->text().toStdString();
    }
    void ShowPage(int page) const
    {
        QTest::mouseClick(Part<QTabWidget>("SSTab1")->tabBar(), Qt::LeftButton, {},
                          Part<QTabWidget>("SSTab1")->tabBar()->tabRect(page).center());
        Settle();
    }
    void Click(const char* button) const
    {
        QTest::mousePress(Part(button), Qt::LeftButton);
        Settle();
        QTest::mouseRelease(Part(button), Qt::LeftButton);
        Settle();
    }
    void Type(const char* box, const char* text) const
    {
        Part(box)->setFocus();
        Part<QLineEdit>(box)->selectAll();
        QTest::keyClicks(Part(box), QLatin1String(text));
        Settle();
    }
    void Tab() const
    {
        QTest::keyClick(Dialog()->focusWidget(), Qt::Key_Tab);
        Settle();
    }
    /// Press and release before anything else is served.
    void ClickAtOnce(const char* button) const
    {
        QTest::mouseClick(Part(button), Qt::LeftButton);
        Settle();
    }
    static void Settle()
    {
        for (int round = 0; round < 5; ++round)
            QApplication::processEvents();
    }
    /// The messages since the last call.
    std::vector<std::string> Told()
    {
        std::vector<std::string> found = Messages();
        prompts.messages.clear();
        return found;
    }
    /// What was sent since the last call, without the link checks.
    std::vector<std::string> Sent()
    {
        std::vector<std::string> found;
        for (const std::string& text : port.sent)
            if (text != "N\r\n")
                found.push_back(text);
        port.sent.clear();
        return found;
    }
    void ExpectReady()
    {
        for (const char* control : {"SSTab1", "Command5", "Command6"})
            EXPECT_TRUE(Part(control)->isEnabledTo(Dialog())) << control;
        EXPECT_EQ(Dialog()->cursor().shape(), Qt::ArrowCursor);
    }
    void ExpectClosed()
    {
        EXPECT_FALSE(Dialog()->isVisible());
        EXPECT_TRUE(window->isEnabled());
        EXPECT_FALSE(port.IsOpen());
        EXPECT_EQ(port.closed, port.opened);
        EXPECT_FALSE(clockTimer.Enabled() || timer1.Enabled());
    }

    bool silent = false;
};

} // namespace quorvane
