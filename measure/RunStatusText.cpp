#include "measure/RunStatusText.h"

#include "files/NumberText.h"
#include "resources/OwnTexts.h"

#include <cstdint>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

/// Silence in the wait for a line, from which on it is called "no data". Silence, and not the whole wait:
/// while bytes come in the sentence would be wrong, and 28 of them end the wait.
constexpr std::chrono::seconds kLongSilence{20};

int StateTextId(RunState state, bool portLost)
{
    switch (state) {
    case RunState::Idle:
    case RunState::Preparing:
        break;
    case RunState::Starting:
        return kConnectingText;
    case RunState::Measuring:
        return portLost ? kPortLostText : kMeasuringText;
    case RunState::Stopping:
        return kStoppingText;
    }
    return kReadyText;
}

void SetAge(RunStatusText& text, std::chrono::seconds interval, const RunStatus& status, const Texts& texts)
{
    if (!status.noReadingSince)
        return;
    const auto age = status.askedAt - *status.noReadingSince;
    text.stale = age > 2 * interval;
    text.noData = text.stale && status.silentSince && status.askedAt - *status.silentSince >= kLongSilence;
    if (text.noData) {
        text.age = texts[kNoDataText];
        return;
    }
    if (status.taken == 0)
        return; // nothing has an age yet
    const auto seconds = std::chrono::floor<std::chrono::seconds>(age);
    text.age = seconds < 1min ? FilledIn(texts[kReadingAgeSecondsText], std::to_string(seconds.count()))
                              : FilledIn(texts[kReadingAgeText], DurationText(seconds));
}

} // namespace

std::string DurationText(std::chrono::seconds time)
{
    const std::chrono::hh_mm_ss parts(time);
    const auto two = [](std::int64_t n) { return PatternText(static_cast<double>(n), {.integerDigits = 2}); };
    const std::string hours = parts.hours().count() > 0 ? std::to_string(parts.hours().count()) + ":" : "";
    return hours + two(parts.minutes().count()) + ":" + two(parts.seconds().count());
}

RunStatusText StatusText(const ApplicationState& state, RunState runState, const RunStatus& status,
                         const Texts& texts, bool portPresent)
{
    RunStatusText text;
    text.state = texts[StateTextId(runState, status.portLost)];
    text.mode = texts[state.RunMode ? kInstrumentModeText : kSimulatedModeText];
    if (state.RunMode)
        text.port = portPresent ? state.RsPort : FilledIn(texts[kPortNotConnectedText], state.RsPort);
    const bool underWay = runState == RunState::Measuring || runState == RunState::Stopping;
    if (underWay || state.DataPresent == 1)
        text.sample = FilledIn(FilledIn(texts[kSampleText], std::to_string(status.taken)),
                               std::to_string(status.planned));
    if (runState == RunState::Measuring)
        text.timeLeft = FilledIn(texts[kTimeLeftText], DurationText(status.left));
    if (status.linesBehind > 1)
        text.behind = FilledIn(texts[kLinesBehindText], std::to_string(status.linesBehind));
    SetAge(text, std::chrono::seconds(state.SamplingSeconds), status, texts);
    return text;
}

} // namespace quorvane
