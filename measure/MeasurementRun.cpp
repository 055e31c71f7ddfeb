#include "measure/MeasurementRun.h"

#include "app/ScopedFlag.h"
#include "measure/Pacing.h"
#include "serial/CommandSet.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvane {

using namespace std::chrono_literals;
using std::chrono::days;
using std::chrono::floor;

namespace {

constexpr int kInstrumentSettingTitle = 161;
constexpr int kStartCaption = 223;
constexpr int kEndCaption = 225;

} // namespace

MeasurementRun::MeasurementRun(ApplicationState& state, MeasurementArrays& arrays, Parts parts)
    : state_(state),
      arrays_(arrays),
      parts_(std::move(parts)),
      lines_(state, {parts_.control, parts_.timer1, parts_.clock, parts_.log},
             [this](std::chrono::milliseconds time) { return ServeRun(time); }),
      record_(state, state, arrays),
      lamps_(parts_.observer)
{
    parts_.timer2.OnTick([this] { Timer2Tick(); });
    parts_.timer3.OnTick([this] { Timer3Tick(); });
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
    stopRequested_ = false;
    stopAbandoned_ = false;
    SetState(RunState::Preparing);
    if (const Refusal refusal = CheckPlan())
        return End(*refusal);

    SetPacing();
    SetState(RunState::Starting);
    parts_.observer.RunPrepared();
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

/// Equal limits are in order.
MeasurementRun::Refusal MeasurementRun::CheckLimits()
{
    if (state_.CAlarm >= state_.StelAlarm && state_.StelAlarm >= state_.TwaAlarm)
        return std::nullopt;
    const Texts& texts = parts_.texts;
    // The title is another dialog's; it is kept as the operators know it.
    ShowCritical(texts[220] + "\r\n\r\n" + texts[282] + " > " + texts[281] + " > " + texts[280],
                 kInstrumentSettingTitle);
    return RunResult::LimitsDisorder;
}

MeasurementRun::Refusal MeasurementRun::AskAboutUnsavedData()
{
    if (state_.DataPresent != 1 || state_.DataSaved != 0)
        return std::nullopt;
    parts_.timer2.Disable();
    parts_.timer3.Disable();
    const Answer answer =
        parts_.prompts.Show({.text = parts_.texts[228], .icon = Icon::Critical, .buttons = Buttons::YesNo});
    if (answer == Answer::Yes) {
        parts_.save();
        return RunResult::SavedInstead;
    }
    state_.DataSaved = 0;
    return std::nullopt;
}

MeasurementRun::Refusal MeasurementRun::CheckPlan()
{
    const Texts& texts = parts_.texts;
    const double total = state_.TotalSamples;
    if (total == 0) {
        ShowCritical(texts[234]);
        return RunResult::NoSamples;
    }
    if (!(total >= 1 && total <= kMaxSamples) || total != std::floor(total)) {
        ShowCritical(texts[220] + "(1-" + std::to_string(kMaxSamples) + ")");
        return RunResult::OutOfRange;
    }
    if (state_.SamplingSeconds < 1 || state_.SamplingSeconds > kMaxSamplingSeconds) {
        ShowCritical(texts[220] + "(1-" + std::to_string(kMaxSamplingSeconds) + ")");
        return RunResult::OutOfRange;
    }
    return std::nullopt;
}

void MeasurementRun::SetPacing()
{
    const Pacing pacing = PacingFor(state_.SamplingSeconds, state_.RunMode);
    MinutesPerSample = pacing.minutesPerSample;
    parts_.timer2.SetInterval(pacing.timer2);
    parts_.timer3.SetInterval(pacing.timer3);
}

/// Opens the port and makes sure that the instrument answers; its answer also ends a stream that an earlier
/// program has left running.
MeasurementRun::Refusal MeasurementRun::Connect()
{
    if (!state_.RunMode)
        return CancelRequested == 0 ? std::nullopt : Refusal(RunResult::StoppedAtStart);
    if (!parts_.link.OpenPort()) {
        parts_.link.ClosePort();
        return RunResult::PortNotOpened;
    }
    const bool answered = CancelRequested == 0 && parts_.link.CheckInstrument();
    if (answered && CancelRequested == 0)
        return std::nullopt;

    parts_.link.ClosePort();
    if (!ServeRun(0ms)) // stopped, or the program closes
        return RunResult::StoppedAtStart;
    parts_.prompts.Show({.text = parts_.texts[218]});
    return RunResult::LinkFailed;
}

void MeasurementRun::PrepareRun()
{
    const LocalMoment now = parts_.clock.Now();
    state_.SampleCount = 0; // first, for whoever hears of the lamps must find no reading
    takenSamples_ = 0;
    record_.Begin(now);
    lines_.Begin();
    lamps_.Clear();
    MinuteTicks = 0;
    RunDate = floor<days>(now);
    if (state_.RunMode)
        parts_.control.ClearInBuffer();
    parts_.observer.ReadingsCleared();
}

/// @return false when a living device did not take the request; one that has just gone is silence
bool MeasurementRun::SendStreamRequest()
{
    if (!state_.RunMode || CancelRequested != 0)
        return true;
    parts_.link.SetStreaming(true);
    return parts_.control.Output(Request(kStreamLetter)) || !parts_.control.IsOpen();
}

void MeasurementRun::Measure(bool requestTaken)
{
    SetState(RunState::Measuring);
    if (CancelRequested == 0)
        parts_.timer2.Enable();
    state_.DataPresent = 0;
    state_.DataSaved = 0; // or a run after a saved one could be lost without a question
    if (!requestTaken) {
        parts_.log.LogSerialError(CommandName(kStreamLetter), {}, 0);
        Fail();
    }
    while (state_.SampleCount < PlannedSamples() && CancelRequested == 0) {
        if (ServeRun(kNap) && state_.RunMode)
            lines_.Look();
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
    state_.SampleCount = takenSamples_; // a failed read leaves no empty row
    if (!state_.RunMode)
        return;
    parts_.link.SetStreaming(false);
    lines_.End();
    SendStopExchange();
    parts_.link.ClosePort();
}

/// A failure is in the error log; the readings are safe.
void MeasurementRun::SendStopExchange()
{
    if (stopAbandoned_ || !parts_.control.IsOpen())
        return;
    static_cast<void>(parts_.link.CheckInstrument());
    if (!stopAbandoned_ && parts_.link.WaitTicks(1, 1000ms) == WaitOutcome::Elapsed)
        parts_.control.ClearInBuffer();
}

RunResult MeasurementRun::End(RunResult result)
{
    parts_.timer2.Disable();
    parts_.timer3.Disable();
    SetState(RunState::Idle);
    parts_.observer.RunEnded(result);
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
        parts_.link.Cancel();
        break;
    case RunState::Measuring:
        stopAbandoned_ = stopRequested_;
        stopRequested_ = true;
        Cancel();
        break;
    case RunState::Stopping:
        stopAbandoned_ = true;
        parts_.link.Cancel();
        break;
    }
}

void MeasurementRun::Cancel()
{
    CancelRequested = 1;
    parts_.timer2.Disable();
    parts_.timer3.Disable();
    if (runState_ == RunState::Measuring)
        state_.SampleCount = takenSamples_; // the reading that was awaited does not come
}

/// The failed exchange is in the error log already. The run ends when its own loop goes on.
void MeasurementRun::Fail()
{
    readFailed_ = true;
    Cancel();
    parts_.prompts.Show({.text = parts_.texts[218]});
}

void MeasurementRun::Command1Click()
{
    if (Command1CaptionId() == kStartCaption)
        Start();
    else
        Stop();
}

int MeasurementRun::Command1CaptionId() const
{
    return runState_ == RunState::Idle || runState_ == RunState::Preparing ? kStartCaption : kEndCaption;
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
    RunStatus status;
    status.taken = takenSamples_;
    status.planned = static_cast<std::int32_t>(state_.TotalSamples);
    status.left = std::chrono::seconds(state_.SamplingSeconds) * std::max(0, status.planned - status.taken);
    status.silentSince = lines_.SilentSince();
    if (state_.RunMode && runState_ == RunState::Measuring) {
        status.linesBehind = lines_.Behind();
        status.portLost = lines_.PortLost();
    }
    return status;
}

// ---- the polling step -----------------------------------------------------------------------------------

void MeasurementRun::Timer2Tick()
{
    if (++MinuteTicks < MinutesPerSample)
        return;
    MinuteTicks = 0;
    parts_.timer3.Enable();
    parts_.timer2.Disable();
}

void MeasurementRun::Timer3Tick()
{
    parts_.timer3.Disable();
    if (CancelRequested != 0)
        return;
    if (state_.RunMode ? TakeLine() : MakeUpLine())
        CompleteSample();
}

/// @return whether the line of a new reading is in `ReplyLine`
bool MeasurementRun::TakeLine()
{
    if (state_.SampleCount >= PlannedSamples()) {
        parts_.timer2.Enable();
        return false;
    }
    const std::int32_t sample = ++state_.SampleCount;
    InstrumentLines::Taken taken = lines_.Take(sample);
    if (taken.outcome == InstrumentLines::Outcome::Failed)
        Fail();
    if (taken.outcome != InstrumentLines::Outcome::Line)
        return false;
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
    arrays_.ReplyLine[next] = SimulatedLine(sample, parts_.clock.Now(), parts_.random);
    return true;
}

void MeasurementRun::CompleteSample()
{
    const std::int32_t sample = state_.SampleCount;
    const LampsLit lit = record_.Store(sample);
    lamps_.Light(lit);
    if (floor<days>(parts_.clock.Now()) != RunDate)
        RunDate += days(1);
    parts_.observer.SampleAdded(sample);
    ++takenSamples_;
    if (CancelRequested == 0) // whoever heard of the reading may have stopped
        parts_.timer2.Enable();
}

// ---- helpers --------------------------------------------------------------------------------------------

bool MeasurementRun::ServeRun(std::chrono::milliseconds time)
{
    if (!parts_.pump.Serve(time) && CancelRequested == 0)
        Cancel();
    return CancelRequested == 0;
}

void MeasurementRun::ShowCritical(std::string text, int titleId)
{
    parts_.prompts.Show({.text = std::move(text), .icon = Icon::Critical, .titleId = titleId});
}

void MeasurementRun::SetState(RunState state)
{
    runState_ = state;
    parts_.observer.StateChanged(state);
}

} // namespace quorvane
