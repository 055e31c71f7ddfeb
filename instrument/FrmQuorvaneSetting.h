#pragma once

#include "app/CheckedInputs.h"
#include "files/ProgramFileCommand.h"
#include "instrument/SettingSession.h"

#include <QDialog>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Ui {
class FrmQuorvaneSetting;
}

namespace quorvane {

/// Sets the instrument up: its measuring program, its clock, its K-factor. What is typed and accepted is in
/// the state at once. It stands beside the main window, which cannot be used meanwhile.
///
/// The dialog waits for the instrument in handlers of its own, so it must live on until it says that it is
/// closed, and must not be destroyed inside that call.
class FrmQuorvaneSetting final : public QDialog, private SettingView {
public:
    struct Parts {
        SettingSession::Parts session;
        ProgramFileCommand& programFile;
        std::function<void()> closed; ///< the dialog has closed, and the port with it
    };
    FrmQuorvaneSetting(ApplicationState& state, const Parts& parts, QWidget* parent);
    ~FrmQuorvaneSetting() override;

    /// Opens the port, fills the pages, and shows the dialog. Returns at once.
    void Load();
    /// Escape, the close box, the end of the program: ends what is under way. Nothing is checked; what was
    /// typed and can be taken is taken. It is over when `closed` is called.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Question;
    void SetFonts();
    void SetCaptions();
    void Connect();
    void Tell(const Message& message);
    [[nodiscard]] CheckedInputs::Input InputOf(CheckedBox* box, ProgramField field);
    [[nodiscard]] CheckedInputs::Input StartDateInput();
    [[nodiscard]] CheckedInputs::Input KFactorInput();

    void ShowProgram();
    void ShowDateHint();
    void ShowStartTime();
    void ShowTotal();
    void ShowLink();
    void ComboClick();
    void TabChanged(int page);
    void SendProgram();
    void SendKFactor();
    void OpenProgram();
    void SaveProgram();
    void Command6Click();

    void ExchangeBegan(InstrumentSend send) override;
    void ExchangeEnded(InstrumentSend send) override;
    void ProgramRefused(ProgramField field) override;
    void KFactorRefused() override;
    void ClockRequest(const std::string& request) override;
    void ComputerClockRead(const ClockTexts& clock) override;
    void InstrumentClockRead(const ClockTexts& clock) override;
    void Closed() override;

    ApplicationState& state_;
    Parts parts_;
    const Texts& texts_;
    ProgramSurroundings program_;
    MeasureTimeEdit measureTime_;
    KFactorEdit kFactor_;
    SettingSession session_;
    std::unique_ptr<Ui::FrmQuorvaneSetting> ui_;
    std::string typedDate_;          ///< shown again when it is refused, to be mended
    std::optional<Message> refusal_; ///< of the box that was left last
    CheckedInputs programInputs_;
    CheckedInputs kFactorInputs_;
    int page_ = 0;             ///< that is shown, or from which a refused one is to be left
    int questions_ = 0;        ///< messages and file dialogs on the screen
    bool closeWanted_ = false; ///< meanwhile
    bool closed_ = false;
    QPointer<QWidget> focusBefore_; ///< the exchange, which takes it away from whatever cannot be pressed
};

} // namespace quorvane
