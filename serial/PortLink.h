#pragma once

#include "app/ApplicationState.h"
#include "app/EventPump.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "app/TickTimer.h"
#include "serial/PortNames.h"
#include "serial/PortReturn.h"
#include "serial/SerialControl.h"
#include "serial/SerialLog.h"

#include <chrono>
#include <optional>

namespace quorvane {

/// How a wait ended. After every wait the world may have changed, and the caller looks.
enum class WaitOutcome {
    Elapsed,
    Cancelled, ///< by the operator, or because another exchange asks for the line
    Closing,   ///< the program is closing
    PortLost,
};

/// Whether somebody ended the wait: no failure of the instrument, and nothing to report.
[[nodiscard]] constexpr bool IsInterrupted(WaitOutcome outcome)
{
    return outcome == WaitOutcome::Cancelled || outcome == WaitOutcome::Closing;
}

/// The one link to the instrument: opens and closes the port, waits, and checks that the instrument answers.
/// With `RunMode` false `OpenPort`, `ClosePort` and `CheckInstrument` touch no port and succeed at once.
class PortLink {
public:
    struct Parts {
        SerialControl& control;
        const PortNames& names;
        EventPump& pump;
        TickTimer& timer1; ///< counts `WaitSeconds` in every wait for the instrument
        Prompts& prompts;
        SerialLog& log;
        const Texts& texts;
    };
    PortLink(ApplicationState& state, const Parts& parts);

    /// Opens the port of the settings. An open port stays as it is. A failure is shown to the operator
    /// before this returns.
    /// @return whether the port can be used
    [[nodiscard]] bool OpenPort();
    void ClosePort();
    /// Why the last `OpenPort` failed.
    [[nodiscard]] const std::optional<PortFault>& LastFault() const { return lastFault_; }
    /// What the port was opened with last; nothing before it was.
    [[nodiscard]] const std::optional<OpenedPort>& Opened() const { return opened_; }

    /// Waits about `count` times `interval`, serving events. Notices a port that is lost meanwhile.
    /// Waits never nest: called from within another wait it ends that one and does not wait itself
    /// (`Cancelled`), because the inner one would reset the outer one's counter. Nor does it wait while the
    /// instrument streams.
    [[nodiscard]] WaitOutcome WaitTicks(int count, std::chrono::milliseconds interval);

    /// The "N" exchange: wakes the instrument, waits until the line has been quiet for a second, and demands
    /// the exact answer "AN" + CR LF to a second "N". A failure leaves one record in the error log; a wait
    /// that was cancelled, or a program that closes, leaves none.
    /// Called while another exchange waits, or while a measurement has the line, it sends nothing and
    /// returns false; the other exchange's wait ends then.
    /// @return whether the instrument answered
    [[nodiscard]] bool CheckInstrument();
    /// Whether the last `CheckInstrument` was ended before it could tell: cancelled, or the program closes.
    [[nodiscard]] bool CheckWasInterrupted() const { return checkInterrupted_; }

    /// Ends the wait that is going on, if any: it returns `Cancelled`.
    void Cancel();

    /// While the instrument streams, its line belongs to the measurement, and no exchange may use it.
    void SetStreaming(bool streaming) { streaming_ = streaming; }

private:
    struct LinkCheck;
    [[nodiscard]] bool ClaimLine();
    void DiscardInput();
    [[nodiscard]] WaitOutcome DrainUntilQuiet();
    void ExchangeLinkCheck(LinkCheck& check);

    ApplicationState& state_;
    SerialControl& control_;
    const PortNames& names_;
    EventPump& pump_;
    TickTimer& timer1_;
    Prompts& prompts_;
    SerialLog& log_;
    const Texts& texts_;
    std::optional<PortFault> lastFault_;
    std::optional<OpenedPort> opened_;
    bool waiting_ = false;
    bool cancelled_ = false;
    bool streaming_ = false;
    bool checkInterrupted_ = false;
};

} // namespace quorvane
