#pragma once

#include "app/ApplicationState.h"
#include "app/EventPump.h"
#include "app/LocalClock.h"
#include "app/TickTimer.h"
#include "measure/LineReader.h"
#include "serial/SerialControl.h"
#include "serial/SerialLog.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quorvane {

/// Takes the data lines of a streaming instrument, one at a time.
class InstrumentLines {
public:
    struct Parts {
        SerialControl& control;
        TickTimer& timer1; ///< its handler, the link's, counts `WaitSeconds`
        const LocalClock& clock;
        SerialLog& log;
    };
    enum class Outcome { Line, Stopped, Failed };
    struct Taken {
        Outcome outcome = Outcome::Stopped;
        std::string text; ///< the line with its CR LF
    };

    InstrumentLines(RunValues& run, const Parts& parts, const RunServe& serve);

    /// Forgets the run before.
    void Begin();

    /// Waits for the line of reading `sample` (from 1) and reads it. The wait has no end of its own: data or
    /// the operator end it. A device that goes away is silence, not an end. A failed read is in the error
    /// log when this returns.
    [[nodiscard]] Taken Take(std::int32_t sample);

    /// A look at the line between two readings: takes in what has come, so that it does not wait in the
    /// system where a hang-up would lose it, and notices a loss.
    void Look();

    /// The last look of a run: what a lost port has left in the middle of a line is in the error log after
    /// it.
    void End();

    /// Whole lines that wait behind the last one taken, as far as lines of its length tell.
    [[nodiscard]] int Behind();
    /// Since when a line is awaited and no byte has come; nothing while no line is awaited.
    [[nodiscard]] std::optional<std::chrono::steady_clock::time_point> SilentSince() const
    {
        return silentSince_;
    }
    /// Whether the device of the running measurement has gone.
    [[nodiscard]] bool PortLost() const { return portLost_; }

private:
    enum class Wait { Enough, Stopped, PortLost };
    [[nodiscard]] Wait AwaitBytes();
    [[nodiscard]] LineRead ReadLine(std::int32_t sample);
    [[nodiscard]] LineRead TakeRest();
    void NoteLoss(const LineRead& read);

    RunValues& run_;
    SerialControl& control_;
    TickTimer& timer1_;
    const LocalClock& clock_;
    SerialLog& log_;
    RunServe serve_;
    LineReader reader_;
    bool acknowledged_ = false;
    bool portLost_ = false;
    std::size_t lastLength_ = 0;
    std::optional<std::chrono::steady_clock::time_point> silentSince_;
};

} // namespace quorvane
