#pragma once

namespace quorvane {

enum class RunState {
    Idle,
    Preparing, ///< settings menus, limit inputs and the start/stop button are disabled; nothing runs yet
    Starting,  ///< the button stops from here on; port and start exchange
    Measuring,
    Stopping, ///< stop exchange; a second stop abandons it
};

enum class RunResult {
    Completed,      ///< all planned readings were taken
    Stopped,        ///< by the operator, or because the program closes
    ReadFailed,     ///< an acknowledgement or a data line failed; the readings so far stay
    LimitsDisorder, ///< not started: ceiling >= STEL >= TWA does not hold
    SavedInstead,   ///< not started: the operator had earlier data to save
    NoSamples,      ///< not started: 0 readings are planned
    OutOfRange,     ///< not started: number of readings or interval outside its range
    Declined,       ///< not started: the operator does not want so many readings
    PortNotOpened,  ///< not started
    LinkFailed,     ///< not started: the instrument did not answer the start exchange
    StoppedAtStart, ///< not started: stopped while the start exchange went on
    AlreadyRunning, ///< not started: a run is under way
};

/// @return whether a run with this result has replaced the earlier readings
[[nodiscard]] constexpr bool RunTookPlace(RunResult result)
{
    return result == RunResult::Completed || result == RunResult::Stopped || result == RunResult::ReadFailed;
}

enum class Lamp { Twa, Stel, Ceiling };

/// What a window or the command line hears of a run, on the thread that runs it. Handlers may call the run's
/// `Stop`; they must not serve events. What comes in a run: `StateChanged`, `RunPrepared`, `ReadingsCleared`
/// with the lamps going out, then for each reading the lamps that it lights and its `SampleAdded`, at the end
/// `RunEnded`.
class RunObserver {
public:
    virtual ~RunObserver() = default;
    virtual void StateChanged(RunState state) = 0;
    /// The run is about to begin. The earlier readings are still there, and stay when the run cannot start.
    virtual void RunPrepared() = 0;
    /// The new run's arrays have replaced those of the earlier one; all are empty.
    virtual void ReadingsCleared() = 0;
    /// Reading `sample` (from 1) is complete: all its arrays are filled. It counts as taken when this
    /// returns.
    virtual void SampleAdded(int sample) = 0;
    virtual void LampChanged(Lamp lamp, bool lit) = 0;
    /// Follows each `StateChanged` to Preparing, in state Idle. A start that is refused before that is told
    /// by the result of `Start` alone.
    virtual void RunEnded(RunResult result) = 0;
};

} // namespace quorvane
