#pragma once

#include "app/ApplicationState.h"
#include "app/EventPump.h"
#include "app/KeepAwake.h"
#include "app/LocalClock.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "app/TickTimer.h"
#include "measure/AlarmLamps.h"
#include "measure/ClockWatch.h"
#include "measure/InstrumentLines.h"
#include "measure/MeasurementArrays.h"
#include "measure/ReadingRecord.h"
#include "measure/RunJournal.h"
#include "measure/RunObserver.h"
#include "measure/SimulatedReading.h"
#include "serial/PortLink.h"
#include "serial/PortReturn.h"

#include <functional>
#include <optional>
#include <string>

namespace quorvane {

/// How a run is getting on, for a status line.
struct RunStatus {
    std::int32_t taken = 0;      ///< readings so far
    std::int32_t planned = 0;    ///< readings in all, as that run was begun
    std::chrono::seconds left{}; ///< until the last one, by the sampling interval
    int linesBehind =
        0; ///< whole lines that wait behind the last one taken; more than 1: the instrument is faster
    bool portLost = false;                         ///< the device of the running measurement has gone
    LocalMoment portLostSince{};                   ///< by the computer's clock, while `portLost`
    std::chrono::steady_clock::time_point askedAt; ///< now, by the clock of the times below
    /// Since when the run measures without a new reading: since the newest one, or since it measures while
    /// there is none; nothing while no run measures.
    std::optional<std::chrono::steady_clock::time_point> noReadingSince;
    /// Since when a line is awaited and no byte has come; nothing while no line is awaited.
    std::optional<std::chrono::steady_clock::time_point> silentSince;
};

/// What a run needs of the world.
struct RunServices {
    PortLink& link;
    SerialControl& control;
    EventPump& pump;
    TickTimer& timer1; ///< 1000 ms while a line is awaited; the link counts its ticks
    TickTimer& timer2; ///< paces the readings
    TickTimer& timer3; ///< takes one reading
    const LocalClock& clock;
    Prompts& prompts;
    SerialLog& log;
    const Texts& texts;
    RandomSource random;            ///< for simulated readings
    RunJournal* journal = nullptr;  ///< null: none is kept
    KeepAwake* keepAwake = nullptr; ///< null: the computer sleeps when it likes
    /// What the operator should know before a run and may start in spite of; empty when all is well.
    std::function<std::string()> advice{};
    PortReturn* portReturn = nullptr; ///< null: a lost device is not looked for
};

/// One measurement run: start, pacing, the polling step that takes a reading, stop. `Start` returns when the
/// run has ended; all sampling happens in the timers' handlers while it serves events.
class MeasurementRun {
public:
    /// @param save  the save command, for readings that a new run would replace
    MeasurementRun(ApplicationState& state, MeasurementArrays& arrays, RunServices services,
                   std::function<void()> save, RunObserver& observer);

    /// Runs one measurement with the settings of the state. Whatever prevents it is told to the operator, and
    /// the earlier readings are kept then. However a run ends, `SampleCount` equals the readings taken.
    RunResult Start();

    /// Stops the run quietly. During the start exchange the run does not take place; during the stop exchange
    /// that exchange is given up. Without a run it does nothing.
    void Stop();

    /// Number of the start/stop button's caption: 223 "Measure Start" or 225 "Measure End". A click does what
    /// it says.
    [[nodiscard]] int Command1CaptionId() const;

    /// Alarm reset: puts the lamps out and starts a new eight-hour span at the latest reading. Does nothing
    /// before the first reading.
    void ResetAlarms();

    /// Puts the lamps out, for readings that are not of a run.
    void ClearLamps() { lamps_.Clear(); }

    [[nodiscard]] RunState State() const { return runState_; }
    [[nodiscard]] const LampsLit& Lamps() const { return lamps_.Lit(); }
    [[nodiscard]] RunStatus Status();
    /// The date that the readings belong to by the computer's clock: that of the start, a day on for each
    /// midnight noticed.
    [[nodiscard]] std::chrono::local_days Date() const { return RunDate; }

private:
    using Refusal = std::optional<RunResult>;
    [[nodiscard]] Refusal CheckLimits();
    [[nodiscard]] Refusal AskAboutUnsavedData();
    [[nodiscard]] Refusal CheckPlan();
    [[nodiscard]] Refusal AskAboutLongTable();
    [[nodiscard]] Refusal TellAdvice();
    [[nodiscard]] Refusal Connect();
    void SetPacing();
    void PrepareRun();
    [[nodiscard]] bool SendStreamRequest();
    void Measure(bool requestTaken);
    [[nodiscard]] double PlannedSamples() const;
    void Disconnect();
    void SendStopExchange();
    RunResult End(RunResult result);
    void SetState(RunState state);
    [[nodiscard]] bool ServeRun(std::chrono::milliseconds time);
    void Cancel();
    void Fail();

    void Timer2Tick();
    void Timer3Tick();
    [[nodiscard]] bool TakeLine();
    [[nodiscard]] bool MakeUpLine();
    void CompleteSample();
    void LookAtClocks();
    void AddGap(RunGap gap);

    ApplicationState& state_;
    MeasurementArrays& arrays_;
    RunServices services_;
    std::function<void()> save_;
    RunObserver& observer_;
    InstrumentLines lines_;
    ReadingRecord record_;
    ClockWatch clocks_;
    AlarmLamps lamps_;

    RunState runState_ = RunState::Idle;
    bool underWay_ = false;
    bool readFailed_ = false;
    bool stopAbandoned_ = false;
    std::int16_t CancelRequested = 0;
    std::int32_t takenSamples_ = 0;
    int MinuteTicks = 0;
    int MinutesPerSample = 1;
    std::chrono::local_days RunDate{};
    std::chrono::steady_clock::time_point noReadingSince_;
};

} // namespace quorvane
