#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/QtText.h"
#include "app/Texts.h"
#include "files/AppFiles.h"
#include "tests/support/MemoryFileStore.h"

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <utility>
#include <vector>

namespace quorvane {

/// A modal dialog in front of the operator, and what it tells.
template <typename Dialog>
struct DialogWorld : testing::Test {
    DialogWorld()
    {
        state.AppPath = "app";
        state.SystemLanguageName = "English";
    }
    template <typename... Arguments>
    void Show(Arguments&&... arguments)
    {
        messages.clear();
        dialog = std::make_unique<Dialog>(state, std::forward<Arguments>(arguments)..., nullptr);
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }
    void Tell(const Message& message)
    {
        EXPECT_EQ(message.titleId, 101);
        EXPECT_TRUE(dialog->isVisible());
        dialog->close(); // the system may ask so at any time
        EXPECT_TRUE(dialog->isVisible());
        messages.push_back(message.text);
    }
    [[nodiscard]] auto Teller()
    {
        return [this](const Message& message) { Tell(message); };
    }
    template <typename Control>
    [[nodiscard]] Control* Part(const char* name) const
    {
        return dialog->template findChild<Control*>(QLatin1String(name));
    }
    void Click(const char* name) const
    {
        auto* const control = Part<QWidget>(name);
        QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(10, control->height() / 2));
    }
    void Press(Qt::Key key) const { QTest::keyClick(dialog->focusWidget(), key); }
    /// What is queued, and what that queues.
    static void Settle()
    {
        for (int round = 0; round < 3; ++round)
            QApplication::processEvents();
    }
    enum class Way { Ok, Enter, Cancel, Escape, CloseBox };
    void TryToLeave(Way way)
    {
        if (way == Way::CloseBox)
            dialog->close();
        else if (way == Way::Enter || way == Way::Escape)
            Press(way == Way::Enter ? Qt::Key_Return : Qt::Key_Escape);
        else
            Click(way == Way::Ok ? "Command1" : "Command2");
    }
    void Leave(Way way)
    {
        TryToLeave(way);
        EXPECT_FALSE(dialog->isVisible());
    }
    [[nodiscard]] static bool Keeps(Way way) { return way == Way::Ok || way == Way::Enter; }

    ApplicationState state;
    MemoryFileStore files;
    StringTable table{TableLanguage::English};
    Texts texts{table, state};
    std::vector<std::string> messages;
    std::unique_ptr<Dialog> dialog;
};

} // namespace quorvane
