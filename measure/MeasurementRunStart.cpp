#include "measure/MeasureSettingEdit.h"
#include "measure/MeasurementRun.h"
#include "measure/Pacing.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <cmath>

// What comes before a run: the checks and questions, each of which may refuse it, and the link.

namespace quorvane {

using namespace std::chrono_literals;

namespace {

constexpr int kUsualSamples = 10000; // a run of more is asked about

} // namespace

/// Equal limits are in order.
MeasurementRun::Refusal MeasurementRun::CheckLimits()
{
    if (state_.CAlarm >= state_.StelAlarm && state_.StelAlarm >= state_.TwaAlarm)
        return std::nullopt;
    const Texts& texts = services_.texts;
    // The title is another dialog's; it is kept as the operators know it.
    services_.prompts.Show({.text = texts[kOutOfRangeText] + "\r\n\r\n" + texts[kCeilingNameText] + " > " +
                                    texts[kStelNameText] + " > " + texts[kTwaNameText],
                            .icon = Icon::Critical,
                            .titleId = kInstrumentSettingText});
    return RunResult::LimitsDisorder;
}

MeasurementRun::Refusal MeasurementRun::AskAboutUnsavedData()
{
    if (state_.DataPresent != 1 || state_.DataSaved != 0)
        return std::nullopt;
    services_.timer2.Disable();
    services_.timer3.Disable();
    const Answer answer = services_.prompts.Show(
        {.text = services_.texts[kUnsavedText], .icon = Icon::Critical, .buttons = Buttons::YesNo});
    if (answer == Answer::Yes) {
        save_();
        return RunResult::SavedInstead;
    }
    state_.DataSaved = 0;
    return std::nullopt;
}

MeasurementRun::Refusal MeasurementRun::CheckPlan()
{
    const Texts& texts = services_.texts;
    const double total = state_.TotalSamples;
    if (total == 0) {
        services_.prompts.Show({.text = texts[kNoReadingsText], .icon = Icon::Critical});
        return RunResult::NoSamples;
    }
    if (!(total >= 1 && total <= kMaxSamples) || total != std::floor(total)) {
        services_.prompts.Show(MeasureRangeMessage(MeasureField::MeasureNumber, texts));
        return RunResult::OutOfRange;
    }
    if (state_.SamplingSeconds < 1 || state_.SamplingSeconds > kMaxSamplingSeconds) {
        services_.prompts.Show(MeasureRangeMessage(MeasureField::SamplingSeconds, texts));
        return RunResult::OutOfRange;
    }
    if (const Refusal refusal = AskAboutLongTable())
        return refusal;
    return TellAdvice();
}

/// A warning, not a limit: without an operator the run goes on.
MeasurementRun::Refusal MeasurementRun::AskAboutLongTable()
{
    if (state_.TotalSamples <= kUsualSamples)
        return std::nullopt;
    const Answer answer = services_.prompts.Show({.text = services_.texts[kLongTableText],
                                                  .icon = Icon::Exclamation,
                                                  .buttons = Buttons::YesNo,
                                                  .unattended = Answer::Yes});
    return answer == Answer::Yes ? std::nullopt : Refusal(RunResult::Declined);
}

/// The last question before the run, for it may be about minutes ago otherwise.
MeasurementRun::Refusal MeasurementRun::TellAdvice()
{
    const std::string advice = services_.advice ? services_.advice() : std::string();
    if (advice.empty())
        return std::nullopt;
    const Answer answer =
        services_.prompts.Show({.text = advice + "\r\n\r\n" + services_.texts[kStartAnywayText],
                                .icon = Icon::Exclamation,
                                .buttons = Buttons::YesNo,
                                .unattended = Answer::Yes});
    return answer == Answer::Yes ? std::nullopt : Refusal(RunResult::Declined);
}

void MeasurementRun::SetPacing()
{
    const Pacing pacing = PacingFor(state_.SamplingSeconds, state_.RunMode);
    MinutesPerSample = pacing.minutesPerSample;
    services_.timer2.SetInterval(pacing.timer2);
    services_.timer3.SetInterval(pacing.timer3);
}

/// Opens the port and makes sure that the instrument answers; its answer also ends a stream that an earlier
/// program has left running.
MeasurementRun::Refusal MeasurementRun::Connect()
{
    if (!state_.RunMode)
        return CancelRequested == 0 ? std::nullopt : Refusal(RunResult::StoppedAtStart);
    if (!services_.link.OpenPort()) {
        services_.link.ClosePort();
        return RunResult::PortNotOpened;
    }
    if (services_.portReturn != nullptr && services_.link.Opened())
        services_.portReturn->Begin(*services_.link.Opened());
    const bool answered = CancelRequested == 0 && services_.link.CheckInstrument();
    if (answered && CancelRequested == 0)
        return std::nullopt;

    services_.link.ClosePort();
    if (!ServeRun(0ms)) // stopped, or the program closes
        return RunResult::StoppedAtStart;
    services_.prompts.Show({.text = services_.texts[kLineErrorText]});
    return RunResult::LinkFailed;
}

} // namespace quorvane
