#pragma once

#include "app/ApplicationState.h"
#include "app/EventPump.h"
#include "app/LocalClock.h"
#include "app/TickTimer.h"
#include "measure/LineReader.h"
#include "measure/RunGap.h"
#include "serial/SerialControl.h"
#include "serial/SerialLog.h"

#include <cstdint>
#include <deque>
#include <functional>
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
        /// A look for the device of a lost port. @return whether it is open again, with an empty buffer.
        /// None: it never comes back
        std::function<bool()> lookForReturn{};
    };
    enum class Outcome { Line, Stopped, Failed };
    struct Taken {
        Outcome outcome = Outcome::Stopped;
        std::string text{};          ///< the line with its CR LF
        std::optional<RunGap> gap{}; ///< that lies before it
    };

    InstrumentLines(RunValues& run, const Parts& parts, const RunServe& serve);

    /// Forgets the run before.
    void Begin();

    /// Waits for the line of reading `sample` (from 1) and reads it. The wait has no end of its own: data or
    /// the operator end it. A failed read is in the error log when this returns.
    ///
    /// A device that goes away is silence, not an end. Whole lines that had come before are still taken; the
    /// part behind them is dropped and in the error log. The device is looked for every 500 ms. When it is
    /// back, everything up to and including the first line end is dropped, because nobody knows where in a
    /// line it begins, and the lines behind that are taken. Losses without a line between them are one gap.
    [[nodiscard]] Taken Take(std::int32_t sample);

    /// A look at the line between two readings: takes in what has come, so that it does not wait in the
    /// system where a hang-up would lose it, notices a loss and looks for the lost device.
    void Look();

    /// The last look of a run of which `taken` readings were taken: what a lost port has left in the middle
    /// of a line is in the error log after it. @return the gap behind the last reading, if there is one
    [[nodiscard]] std::optional<RunGap> End(std::int32_t taken);

    /// Whole lines that wait behind the last one taken, as far as lines of its length tell.
    [[nodiscard]] int Behind();
    /// Since when a line is awaited and no byte has come; nothing while no line is awaited.
    [[nodiscard]] std::optional<std::chrono::steady_clock::time_point> SilentSince() const
    {
        return silentSince_;
    }
    /// Since when the device of the running measurement is gone, by the computer's clock; nothing while it is
    /// there.
    [[nodiscard]] const std::optional<LocalMoment>& LostSince() const { return lostSince_; }

private:
    enum class Wait { Enough, Stopped, Kept };
    struct KeptLine {
        std::string text;
        std::optional<RunGap> gap; ///< that lies before it
    };
    [[nodiscard]] Wait AwaitBytes();
    [[nodiscard]] Taken TakeKept(std::int32_t sample);
    [[nodiscard]] LineRead ReadLine(LineReader& reader);
    [[nodiscard]] bool LookAtPort();
    [[nodiscard]] bool DropFirstLine();
    void NoteLoss(const LineRead& read);
    [[nodiscard]] LineRead KeepRest();
    void Keep(std::string line);
    void LookForReturn();

    RunValues& run_;
    SerialControl& control_;
    TickTimer& timer1_;
    const LocalClock& clock_;
    SerialLog& log_;
    std::function<bool()> lookForReturn_;
    RunServe serve_;
    LineReader reader_;
    bool acknowledged_ = false;
    std::deque<KeptLine> kept_; ///< whole lines that a lost port has left
    std::optional<LocalMoment> lostSince_;
    std::chrono::steady_clock::time_point nextLook_; ///< for a lost device
    std::string lastDropped_;                        ///< the latest character of the line that is dropped
    bool inFirstLine_ = false;                       ///< behind a return, and no line end yet
    std::optional<RunGap> gap_;                      ///< before the next line of the port
    std::size_t lastLength_ = 0;
    std::optional<std::chrono::steady_clock::time_point> silentSince_;
};

} // namespace quorvane
