#pragma once

#include "app/TickTimer.h"
#include "instrument/CommandExchange.h"
#include "instrument/InstrumentClock.h"
#include "instrument/KFactor.h"
#include "instrument/MeasuringProgram.h"

#include <functional>
#include <optional>
#include <string>

namespace quorvane {

enum class InstrumentSend { Program, Clock, KFactor };

/// Shows what happens between the program and the instrument while it is set up.
class SettingView {
public:
    virtual ~SettingView() = default;
    /// From here to `ExchangeEnded` nothing can be pressed, and the pointer says that the program is busy.
    virtual void ExchangeBegan(InstrumentSend send) = 0;
    virtual void ExchangeEnded(InstrumentSend send) = 0;
    /// The program was not sent because of this field; the operator has been told.
    virtual void ProgramRefused(ProgramField field) = 0;
    /// The K-factor was not sent; the operator has been told.
    virtual void KFactorRefused() = 0;
    /// The request that sets the clock, as it is sent, without CR LF.
    virtual void ClockRequest(const std::string& request) = 0;
    virtual void ComputerClockRead(const ClockTexts& clock) = 0;
    /// Empty texts when the instrument does not tell.
    virtual void InstrumentClockRead(const ClockTexts& clock) = 0;
    /// The session is over: nothing is under way any more, and the port is closed. Called once.
    virtual void Closed() = 0;
};

/// What the dialog that sets the instrument up does with it, from its opening to its closing: who may use the
/// line when, and what the operator is told. One exchange at a time.
class SettingSession {
public:
    struct Parts {
        PortLink& link;
        SerialControl& control;
        TickTimer& timer1; ///< the dialog's own: a tick each second while the clock is shown
        SerialLog& log;
        Prompts& prompts;
        const Texts& texts;
        const LocaleItems& locale;
        const LocalClock& clock;
    };
    SettingSession(ApplicationState& state, const Parts& parts, SettingView& view);
    /// Before `Open`, or after `Closed`: until then a step of the session may be waiting further up.
    ~SettingSession();
    SettingSession(const SettingSession&) = delete;
    SettingSession& operator=(const SettingSession&) = delete;

    /// The dialog loads: opens the port, and says once when that is not possible; fills the clock page.
    void Open();
    /// The clock page has come up or gone away: while it is shown both clocks are read every second.
    void ShowClockPage(bool shown);
    /// Checks what is to be sent, sends it, and tells the result. A clock read that waits is ended first.
    /// Ignored while another send is under way.
    void Send(InstrumentSend send);
    /// Reads both clocks at once; opens the port first when it is closed. Ignored while anything is under
    /// way.
    void RefreshClock();
    /// Ends what is under way, closes the port, and reports `Closed`: at once, or as soon as what is under
    /// way has unwound.
    void Close();
    [[nodiscard]] bool Busy() const { return sending_ || reading_; }

private:
    class ExchangeScope;

    void Run(const std::function<void()>& step);
    void Finish();

    void Tick();
    void ReadClocks();
    void ShowClocks();
    [[nodiscard]] ClockTexts ReadComputerClock();

    [[nodiscard]] bool MaySend(InstrumentSend send);
    [[nodiscard]] bool ProgramMayBeSent();
    [[nodiscard]] bool KFactorMayBeSent();
    void Transmit(InstrumentSend send);
    [[nodiscard]] ExchangeOutcome Exchange(InstrumentSend send);
    [[nodiscard]] bool OpenLine();
    [[nodiscard]] InstrumentCommand CommandFor(InstrumentSend send);
    void BeginExchange(InstrumentSend send);
    void EndExchange();

    /// The wish that ends every step at its next look.
    [[nodiscard]] bool Interrupted() const { return closing_ || waitingSend_; }

    ApplicationState& state_;
    Parts parts_;
    SettingView& view_;
    ProgramSurroundings program_;
    CommandExchange exchange_;
    InstrumentClock instrumentClock_;

    int steps_ = 0;        ///< that are under way, one inside the other
    bool closing_ = false; ///< the operator wants to leave, or has left
    bool sending_ = false;
    bool reading_ = false;
    bool clockPageShown_ = false;
    bool ExchangeFailed = false; ///< the last send; the next clock read clears it, and nothing else asks
    std::optional<InstrumentSend> waitingSend_; ///< until the clock read has unwound
    std::optional<InstrumentSend> exchanging_;  ///< what the view shows as being sent
    ClockTexts shownInstrument_;
};

} // namespace quorvane
