#pragma once

#include "app/TickTimer.h"
#include "instrument/CommandExchange.h"
#include "instrument/InstrumentClock.h"
#include "instrument/KFactor.h"
#include "instrument/MeasuringProgram.h"

#include <cstdint>
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
    ~SettingSession();

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
    // (the implementer's)
    bool sending_ = false;
    bool reading_ = false;
};

} // namespace quorvane
