#include "measure/MeasurementRun.h"

#include "app/ScopedFlag.h"
#include "resources/SystemTexts.h"
#include "serial/CommandSet.h"

#include <algorithm>
#include <utility>

namespace quorvane {

using namespace std::chrono_literals;
using std::chrono::days;
using std::chrono::floor;

namespace {

/// Between readings the timers come by themselves; a look is for a lost port and for bytes that must not
/// wait.
constexpr std::chrono::milliseconds kRunNap{50};

} // namespace

MeasurementRun::MeasurementRun(ApplicationState& state, MeasurementArrays& arrays, RunServices services,
                               std::function<void()> save, RunObserver& observer)
    : state_(state),
      arrays_(arrays),
      services_(std::move(services)),
      save_(std::move(save)),
      observer_(observer),
      lines_(state,
             {.control = services_.control,
              .timer1 = services_.timer1,
              .clock = services_.clock,
              .log = services_.log,
              .lookForReturn =
                  [this] { return services_.portReturn != nullptr && services_.portReturn->Look(); }},
             [this](std::chrono::milliseconds time) { return ServeRun(time); }),
      record_(state, state, arrays),
      clocks_(services_.clock),
      lamps_(observer_)
{
    services_.timer2.OnTick([this] { Timer2Tick(); });
    services_.timer3.OnTick([this] { Timer3Tick(); });
}

// ---- start ----------------------------------------------------------------------------------------------

RunResult MeasurementRun::Start()
{
    if (underWay_)
        return RunResult::AlreadyRunning;
    const ScopedFlag underWay(underWay_);

    if (const Refusal refusal = CheckLimits())
        return *refusal;
    if (const Refusal refusal = AskAboutUnsavedData())
        return *refusal;

    CancelRequested = 0;
    readFailed_ = false;
    stopAbandoned_ = false;
    SetState(RunState::Preparing);
    if (const Refusal refusal = CheckPlan())
        return End(*refusal);

    SetPacing();
    SetState(RunState::Starting);
    observer_.RunPrepared();
    if (const Refusal refusal = Connect())
        return End(*refusal);

    PrepareRun();
    Measure(SendStreamRequest());
    Disconnect();
    state_.DataPresent = 1;
    if (readFailed_)
        return End(RunResult::ReadFailed);
    return End(CancelRequested != 0 ? RunResult::Stopped : RunResult::Completed);
}

void MeasurementRun::PrepareRun()
{
    const LocalMoment now = services_.clock.Now();
    state_.SampleCount = 0; // first, for whoever hears of the lamps must find no reading
    takenSamples_ = 0;
    record_.Begin(now);
    arrays_.Simulated = !state_.RunMode;
    if (services_.journal != nullptr)
        services_.journal->Begin(now, arrays_.Simulated);
    lines_.Begin();
    lamps_.Clear();
    MinuteTicks = 0;
    RunDate = floor<days>(now);
    if (state_.RunMode)
        services_.control.ClearInBuffer();
    observer_.ReadingsCleared();
}

/// @return false when a living device did not take the request; one that has just gone is silence
bool MeasurementRun::SendStreamRequest()
{
    if (!state_.RunMode || CancelRequested != 0)
        return true;
    services_.link.SetStreaming(true);
    return services_.control.Output(Request(kStreamLetter)) || !services_.control.IsOpen();
}

void MeasurementRun::Measure(bool requestTaken)
{
    noReadingSince_ = services_.clock.SteadyNow();
    clocks_.Begin();
    if (services_.keepAwake != nullptr)
        services_.keepAwake->Hold();
    SetState(RunState::Measuring);
    if (CancelRequested == 0)
        services_.timer2.Enable();
    state_.DataPresent = 0;
    state_.DataSaved = 0; // or a run after a saved one could be lost without a question
    if (!requestTaken) {
        services_.log.LogSerialError(CommandName(kStreamLetter), {}, 0);
        Fail();
    }
    while (state_.SampleCount < PlannedSamples() && CancelRequested == 0) {
        if (ServeRun(kRunNap) && state_.RunMode)
            lines_.Look();
        if (services_.journal != nullptr)
            services_.journal->Look();
    }
}

/// The arrays bound the run even if the settings should change while it goes on.
double MeasurementRun::PlannedSamples() const
{
    return std::min(state_.TotalSamples, static_cast<double>(arrays_.ReplyLine.size()) - 1);
}

// ---- end ------------------------------------------------------------------------------------------------

void MeasurementRun::Disconnect()
{
    SetState(RunState::Stopping);
    if (services_.keepAwake != nullptr)
        services_.keepAwake->Release();
    state_.SampleCount = takenSamples_; // a failed read leaves no empty row
    if (state_.RunMode) {
        const auto gap = lines_.End(takenSamples_);
        if (gap && takenSamples_ < PlannedSamples()) // behind the last planned reading none is missing
            arrays_.Gaps.push_back(*gap);
    }
    if (services_.journal != nullptr)
        services_.journal->End();
    if (!state_.RunMode)
        return;
    services_.link.SetStreaming(false);
    SendStopExchange();
    services_.link.ClosePort();
}

/// A failure is in the error log; the readings are safe.
void MeasurementRun::SendStopExchange()
{
    if (stopAbandoned_ || !services_.control.IsOpen())
        return;
    static_cast<void>(services_.link.CheckInstrument());
    if (!stopAbandoned_ && services_.link.WaitTicks(1, 1000ms) == WaitOutcome::Elapsed)
        services_.control.ClearInBuffer();
}

RunResult MeasurementRun::End(RunResult result)
{
    services_.timer2.Disable();
    services_.timer3.Disable();
    SetState(RunState::Idle);
    observer_.RunEnded(result);
    return result;
}

void MeasurementRun::Stop()
{
    switch (runState_) {
    case RunState::Idle:
    case RunState::Preparing:
        break;
    case RunState::Starting:
        Cancel();
        services_.link.Cancel();
        break;
    case RunState::Measuring:
        Cancel();
        break;
    case RunState::Stopping:
        stopAbandoned_ = true;
        services_.link.Cancel();
        break;
    }
}

void MeasurementRun::Cancel()
{
    CancelRequested = 1;
    services_.timer2.Disable();
    services_.timer3.Disable();
    if (runState_ == RunState::Measuring)
        state_.SampleCount = takenSamples_; // the reading that was awaited does not come
}

/// The failed exchange is in the error log already. The run ends when its own loop goes on.
void MeasurementRun::Fail()
{
    readFailed_ = true;
    Cancel();
    services_.prompts.Show({.text = services_.texts[kLineErrorText]});
}

int MeasurementRun::Command1CaptionId() const
{
    return runState_ == RunState::Idle || runState_ == RunState::Preparing ? kMeasureStartText
                                                                           : kMeasureEndText;
}

void MeasurementRun::ResetAlarms()
{
    if (state_.SampleCount == 0)
        return;
    record_.StartSpan(state_.SampleCount);
    lamps_.Clear();
}

RunStatus MeasurementRun::Status()
{
    LookAtClocks(); // while somebody moves a window, for instance, only timers come through
    RunStatus status;
    status.taken = takenSamples_;
    status.planned = std::max(0, static_cast<std::int32_t>(arrays_.ReplyLine.size()) - 1);
    status.left = std::chrono::seconds(state_.SamplingSeconds) * std::max(0, status.planned - status.taken);
    status.askedAt = services_.clock.SteadyNow();
    if (runState_ == RunState::Measuring)
        status.noReadingSince = noReadingSince_;
    status.silentSince = lines_.SilentSince();
    if (state_.RunMode && runState_ == RunState::Measuring) {
        status.linesBehind = lines_.Behind();
        status.portLost = lines_.LostSince().has_value();
        status.portLostSince = lines_.LostSince().value_or(LocalMoment{});
    }
    return status;
}

// ---- the polling step -----------------------------------------------------------------------------------

void MeasurementRun::Timer2Tick()
{
    if (++MinuteTicks < MinutesPerSample)
        return;
    MinuteTicks = 0;
    services_.timer3.Enable();
    services_.timer2.Disable();
}

void MeasurementRun::Timer3Tick()
{
    services_.timer3.Disable();
    if (CancelRequested != 0)
        return;
    if (state_.RunMode ? TakeLine() : MakeUpLine())
        CompleteSample();
}

/// @return whether the line of a new reading is in `ReplyLine`
bool MeasurementRun::TakeLine()
{
    if (state_.SampleCount >= PlannedSamples()) {
        services_.timer2.Enable();
        return false;
    }
    const std::int32_t sample = ++state_.SampleCount;
    InstrumentLines::Taken taken = lines_.Take(sample);
    if (taken.outcome == InstrumentLines::Outcome::Failed)
        Fail();
    if (taken.outcome != InstrumentLines::Outcome::Line)
        return false;
    if (taken.gap)
        arrays_.Gaps.push_back(*taken.gap);
    arrays_.ReplyLine[static_cast<std::size_t>(sample)] = std::move(taken.text);
    return true;
}

/// A simulated run does not compare with the planned number: a message box that holds the run's loop may let
/// more ticks come. What lies beyond the arrays ends quietly.
bool MeasurementRun::MakeUpLine()
{
    const auto next = static_cast<std::size_t>(state_.SampleCount) + 1;
    if (next >= arrays_.ReplyLine.size())
        return false;
    const std::int32_t sample = ++state_.SampleCount;
    arrays_.ReplyLine[next] = SimulatedLine(sample, services_.clock.Now(), services_.random);
    return true;
}

void MeasurementRun::CompleteSample()
{
    const std::int32_t sample = state_.SampleCount;
    noReadingSince_ = services_.clock.SteadyNow();
    const LampsLit lit = record_.Store(sample);
    if (services_.journal != nullptr) // first of all: what comes next may end the program
        services_.journal->Taken(sample);
    lamps_.Light(lit);
    if (floor<days>(services_.clock.Now()) != RunDate)
        RunDate += days(1);
    observer_.SampleAdded(sample);
    ++takenSamples_;
    if (CancelRequested == 0) // whoever heard of the reading may have stopped
        services_.timer2.Enable();
}

// ---- helpers --------------------------------------------------------------------------------------------

bool MeasurementRun::ServeRun(std::chrono::milliseconds time)
{
    if (!services_.pump.Serve(time) && CancelRequested == 0)
        Cancel();
    LookAtClocks();
    return CancelRequested == 0;
}

void MeasurementRun::LookAtClocks()
{
    if (runState_ != RunState::Measuring)
        return;
    if (const auto gap = clocks_.Look())
        AddGap(*gap);
}

/// It lies in front of the reading that comes next.
void MeasurementRun::AddGap(RunGap gap)
{
    gap.before = takenSamples_ + 1;
    arrays_.Gaps.push_back(gap);
}

void MeasurementRun::SetState(RunState state)
{
    runState_ = state;
    observer_.StateChanged(state);
}

} // namespace quorvane
