#pragma once

#include "app/FrmMenu.h"
#include "app/QtWindowOrder.h"
#include "files/FileProfile.h"
#include "measure/LiveTable.h"
#include "stored/QtDriveFolders.h"
#include "tests/support/FakeDeviceWatch.h"
#include "tests/support/FakeJournals.h"
#include "tests/support/InstrumentWorld.h"
#include "tests/support/ScriptedPorts.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

namespace quorvane {

/// The main window in the discrete-event world: its controls are real, time and instrument are scripts.
struct WindowWorld : InstrumentWorld {
    WindowWorld()
    {
        world.onPump = [this](long pump) {
            if (onPump)
                onPump(pump);
            QApplication::processEvents();
        };
        Plan(3, 1);
    }

    void Plan(int samples, int intervalSeconds)
    {
        state.TotalSamples = samples;
        state.SamplingSeconds = static_cast<std::int16_t>(intervalSeconds);
        state.TotalHours = state.TotalMinutes = 0;
        state.TotalSeconds = samples * intervalSeconds;
    }

    /// Writes the present state as the settings file, and opens the window, which reads it.
    void Open()
    {
        Show();
        window->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(window.get()));
    }
    /// The same for a window that another one stands before at once.
    void Show()
    {
        settings.SaveSettings();
        RunServices run = Services([] { return 0.5; });
        run.journal = &journal;
        window = std::make_unique<FrmMenu>(state, FrmMenu::Parts{.run = run,
                                                                 .timer4 = timer4,
                                                                 .windowOrder = windowOrder,
                                                                 .statusTimer = statusTimer,
                                                                 .port = portWatch,
                                                                 .portNames = names,
                                                                 .portProbe = ports,
                                                                 .portDescriptions = ports,
                                                                 .drives = drives,
                                                                 .locale = locale,
                                                                 .saveCommand = save,
                                                                 .openCommand = open,
                                                                 .programFile = programFile,
                                                                 .clockTimer = clockTimer,
                                                                 .files = files,
                                                                 .settings = settings,
                                                                 .arrays = arrays,
                                                                 .journal = journal,
                                                                 .recovery = recovery,
                                                                 .closed = [this] { ++closed; }});
        window->Load();
        window->show();
    }

    template <typename Control>
    [[nodiscard]] Control* Find(const char* name) const
    {
        return window->findChild<Control*>(QLatin1String(name));
    }

    /// What the operator does. A run that it starts is over when this returns.
    void Click(const char* button)
    {
        QTest::mouseClick(Find<QWidget>(button), Qt::LeftButton);
        QApplication::processEvents();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* focus = window->focusWidget();
        QTest::keyClick(focus == nullptr ? window.get() : focus, key, modifiers);
        QApplication::processEvents();
    }
    /// The operator takes a breath: presses in quick succession are one.
    void Pause() { static_cast<void>(world.Serve(std::chrono::seconds(1))); }
    void Measure()
    {
        Pause();
        MeasureAtOnce();
    }
    void MeasureAtOnce()
    {
        GiveLines(static_cast<int>(state.TotalSamples));
        Click("Command1");
        QApplication::processEvents(); // a close that was put off comes back now
        lines.clear();
    }

    void Trigger(const char* action)
    {
        Find<QAction>(action)->trigger();
        QApplication::processEvents();
    }

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
    [[nodiscard]] std::string Caption() const { return Find<QPushButton>("Command1")->text().toStdString(); }
    /// What has to hold whenever no run is under way, whatever happened before.
    void ExpectIdle()
    {
        EXPECT_EQ(window->Run().State(), RunState::Idle);
        EXPECT_FALSE(port.IsOpen());
        EXPECT_FALSE(timer1.Enabled() || timer2.Enabled() || timer3.Enabled());
        EXPECT_EQ(Caption(), "Measure Start");
        EXPECT_TRUE(Enabled("MenuMeasureStart"));
        EXPECT_FALSE(Enabled("MenuMeasureEnd"));
        EXPECT_TRUE(Find<QWidget>("Text1")->isEnabled());
        EXPECT_EQ(Rows(), state.SampleCount);
    }

    std::function<void(long)> onPump;
    int closed = 0;
    WorldTimer timer4{world};
    QtWindowOrder windowOrder;
    WorldTimer statusTimer{world};
    SettingsFile settings{state, files, codePage, world, locale, {0, 1, 0}};
    FakeJournals journals;
    RunJournal journal{state, state, arrays, journals};
    JournalRecovery recovery{state, arrays, journals, journal};
    SaveCommand save{state, arrays, {files, codePage, locale, world, prompts, texts, {0, 1, 0}, [this] {
                                         journal.Settle();
                                     }}};
    FakeDeviceWatch devices;
    PortWatch portWatch{devices, names};
    ScriptedPorts ports;
    QtDriveFolders drives;
    OpenCommand open{state, arrays, {files, codePage, locale, world, prompts, texts}};
    FileProfile profile{files, codePage};
    ProgramFileCommand programFile{state, {files, profile, prompts, texts, {0, 1, 0}}};
    WorldTimer clockTimer{world};
    std::unique_ptr<FrmMenu> window;
};

} // namespace quorvane
