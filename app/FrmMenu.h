#pragma once

#include "app/FrmRecovery.h"
#include "app/PortWatch.h"
#include "app/StatusLine.h"
#include "app/WindowKeeper.h"
#include "app/WindowLayout.h"
#include "files/OpenCommand.h"
#include "files/SaveCommand.h"
#include "files/SettingsFile.h"
#include "graph/ChartOutput.h"
#include "graph/ChartPane.h"
#include "instrument/FrmQuorvaneSetting.h"
#include "measure/ExposureRows.h"
#include "measure/JournalRecovery.h"
#include "measure/LimitInputs.h"
#include "measure/LiveTableModel.h"
#include "measure/MeasurementRun.h"
#include "measure/ReadingPanel.h"
#include "options/Guide.h"
#include "serial/FrmRS232CSetting.h"
#include "stored/DriveFolders.h"

#include <QDialog>
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class FrmMenu;
}

namespace quorvane {

/// The main window, the program's only long-lived one. It owns the measurement run; its handlers read
/// controls, call the rules and show the outcome.
class FrmMenu final : public QMainWindow, private RunObserver {
public:
    struct Parts {
        RunServices run;
        TickTimer& timer4; ///< keeps windows in front
        WindowOrder& windowOrder;
        TickTimer& statusTimer; ///< brings the status bar up to date
        PortWatch& port;
        const PortNames& portNames;
        const PortProbe& portProbe;
        const PortDescriptions& portDescriptions;
        const DriveFolders& drives;
        const LocaleItems& locale;
        SaveCommand& saveCommand;
        OpenCommand& openCommand;
        ProgramFileCommand& programFile;
        TickTimer& clockTimer; ///< of the instrument settings
        FileStore& files;      ///< for the language choice, and for what the window remembers of its looks
        SettingsFile& settings;
        MeasurementArrays& arrays;
        RunJournal& journal;
        JournalRecovery& recovery;    ///< what an earlier program has left, offered once the window is shown
        std::function<void()> closed; ///< the window has closed, and the program is to end
    };
    FrmMenu(ApplicationState& state, Parts parts);
    ~FrmMenu() override;

    /// Reads the settings, settles the language, and shows both. Called once, before the window is shown.
    void Load();
    /// Says something for good in the status bar.
    void Announce(const std::string& text);
    /// The system is about to end (log-off, restart) and asks. A run goes on; unsaved readings are asked
    /// about as at the close button, when the system has its answer. @return whether it must not end, or
    /// readings were lost
    [[nodiscard]] bool RefusesEndOfSystem();

    /// More is known about the machine than before.
    void ShowMachineFacts();

    [[nodiscard]] MeasurementRun& Run() { return run_; }

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    class Command;
    void Connect();
    void SetFonts();
    void SetShortcuts();
    void SetCaptions();
    void ShowTitle();
    void ShowMode();
    void UpdateCommands();
    void UpdateStatus();
    void ShowJournalHealth();
    void ShowReading(int sample);

    [[nodiscard]] bool IsPressOfItsOwn();
    void Command1Click();
    void StartMeasurement();
    void ToolbarClick(const QString& key);
    void MenuOpen();
    void Open(const QString& path);
    void ShowOpened(const std::string& path);
    void ShowReadings(const QString& file);
    void OfferLeftOverRuns();
    void TellUnreadableJournals();
    [[nodiscard]] FrmRecovery::Choice AskAbout(const LeftOverRun& run);
    void MenuSave();
    SaveResult Save();
    void MenuMeasureSetting();
    void MenuGraphSetting();
    void MenuRS232C();
    void MenuOption();
    void MenuQuorvaneSetting();
    void InstrumentSettingClosed();
    void MenuVersion();
    void ShowDialog(QDialog* dialog);
    [[nodiscard]] bool SettleUnsavedData();
    void Exit();
    void PutCloseOff();
    Answer Ask(const Message& message);
    [[nodiscard]] bool Busy() const { return commands_ > 0; }

    void StateChanged(RunState state) override;
    void RunPrepared() override;
    void ReadingsCleared() override;
    void SampleAdded(int sample) override;
    void LampChanged(Lamp lamp, bool lit) override;
    void RunEnded(RunResult result) override;

    ApplicationState& state_;
    Parts parts_;
    std::unique_ptr<Ui::FrmMenu> ui_;
    LiveTableModel* table_;
    ExposureRows exposure_;
    LimitInputs limits_;
    ReadingPanel readings_;
    StatusLine status_;
    ChartPane chart_;
    ChartOutput output_;
    WindowKeeper keeper_;
    Guide guide_;
    std::optional<WindowLayout> layout_; ///< once the settings are read
    MeasurementRun run_;
    QPointer<FrmRS232CSetting> portSetting_;                ///< while it is open
    std::unique_ptr<FrmQuorvaneSetting> instrumentSetting_; ///< the one that was opened last
    std::shared_ptr<Command> instrumentCommand_;            ///< while it is open; nobody else has it
    QPointer<FrmRecovery> offer_;                           ///< while it is open
    QPointer<QWidget> focusBefore_;                         ///< it took the focus from all that is disabled
    QString openedName_;       ///< of the file that the readings come from; empty for a run's
    bool ofThisRun_ = true;    ///< they were measured by this program, or there are none
    bool offered_ = false;     ///< what an earlier program has left
    int commands_ = 0;         ///< being carried out, perhaps with a question on the screen
    bool closeWanted_ = false; ///< the window was to be closed meanwhile
    bool button1HadFocus_ = false;
    std::optional<std::chrono::steady_clock::time_point> lastPress_; ///< of start or stop
};

} // namespace quorvane
