#pragma once

#include "app/ApplicationState.h"
#include "app/FrmMenu.h"
#include "app/PortWatch.h"
#include "app/QtEventPump.h"
#include "app/QtPrompts.h"
#include "app/QtTickTimer.h"
#include "app/QtWindowOrder.h"
#include "app/Texts.h"
#include "files/OpenCommand.h"
#include "files/ProgramFileCommand.h"
#include "files/ProgramFiles.h"
#include "files/SaveCommand.h"
#include "files/SettingsFile.h"
#include "measure/JournalRecovery.h"
#include "measure/MeasurementArrays.h"
#include "measure/RunJournal.h"
#include "platform/Platform.h"
#include "resources/StringTable.h"
#include "serial/PortLink.h"
#include "serial/PortReturn.h"
#include "serial/SerialLog.h"
#include "stored/QtDriveFolders.h"

#include <memory>

namespace quorvane {

/// The desktop program: makes the state, the system's parts, the link and the main window, in that order, and
/// lets each know what it needs. Wants an application object of the toolkit.
class DesktopProgram {
public:
    explicit DesktopProgram(Platform platform);

    /// Start-up. @param selectLanguage  the operator chooses the language before the main window opens
    /// @return false when another instance runs; the operator has been told
    [[nodiscard]] bool Start(bool selectLanguage = false);
    /// After a successful start: serves the operator until the main window is closed. @return the exit status
    int Run();

    /// There after a successful start.
    [[nodiscard]] FrmMenu& Window() { return *window_; }

private:
    [[nodiscard]] std::string Advice() const;
    void AwaitProcessors();
    void AnswerTheSystemsEnd();
    void SelectLanguage();
    void ShowMainWindow();
    void End();
    void UseProgramLanguage();

    Platform platform_;
    ApplicationState state_;
    MeasurementArrays arrays_;
    StringTable table_;
    Texts texts_;
    QtEventPump pump_;
    QtTickTimer timer1_;
    QtTickTimer timer2_;
    QtTickTimer timer3_;
    QtTickTimer timer4_;
    QtWindowOrder windowOrder_; ///< where the platform has none
    QtTickTimer clockTimer_;
    QtTickTimer statusTimer_;
    QtTickTimer interruptTimer_;
    QtTickTimer processorTimer_;
    QtPrompts prompts_;
    SerialLog log_;
    PortLink link_;
    PortReturn portReturn_;
    SettingsFile settings_;
    RunJournal journal_;
    JournalRecovery recovery_;
    SaveCommand save_;
    OpenCommand open_;
    ProgramFileCommand programFile_;
    PortWatch port_;
    std::unique_ptr<KeepAwake> keepAwake_; ///< null where nobody can ask for it
    QtDriveFolders drives_;
    ProgramFiles files_;
    std::unique_ptr<FrmMenu> window_;
};

} // namespace quorvane
