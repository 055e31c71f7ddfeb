#include "measure/RunStatusText.h"

#include "files/NumberText.h"
#include "instrument/DateTimeText.h"
#include "resources/OwnTexts.h"

#include <cstdint>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

/// Silence in the wait for a line, from which on it is called "no data". Silence, and not the whole wait:
/// while bytes come in the sentence would be wrong, and 28 of them end the wait.
constexpr std::chrono::seconds kLongSilence{20};

int StateTextId(RunState state)
{
    switch (state) {
    case RunState::Idle:
    case RunState::Preparing:
        break;
    case RunState::Starting:
        return kConnectingText;
    case RunState::Measuring:
        return kMeasuringText;
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
    // While the port is lost its loss is told, and not silence, of which the instrument is innocent.
    text.noData = text.stale && !status.portLost && status.silentSince &&
                  status.askedAt - *status.silentSince >= kLongSilence;
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

std::string PortLossText(const RunStatus& status, const std::string& port, const Texts& texts)
{
    return FilledIn(FilledIn(texts[kPortLostText], InstrumentTimeText(status.portLostSince)), port);
}

RunStatusText StatusText(const ApplicationState& state, RunState runState, const RunStatus& status,
                         const Texts& texts, bool portPresent)
{
    RunStatusText text;
    const bool measuring = runState == RunState::Measuring;
    const bool portLost = measuring && status.portLost;
    text.state = portLost ? PortLossText(status, state.RsPort, texts) : texts[StateTextId(runState)];
    text.mode = texts[state.RunMode ? kInstrumentModeText : kSimulatedModeText];
    if (state.RunMode)
        // The adapter may have come back under another name.
        text.port = portPresent || (measuring && !portLost)
                        ? state.RsPort
                        : FilledIn(texts[kPortNotConnectedText], state.RsPort);
    const bool underWay = measuring || runState == RunState::Stopping;
    if (underWay || state.DataPresent == 1)
        text.sample = FilledIn(FilledIn(texts[kSampleText], std::to_string(status.taken)),
                               std::to_string(status.planned));
    if (measuring)
        text.timeLeft = FilledIn(texts[kTimeLeftText], DurationText(status.left));
    if (status.linesBehind > 1)
        text.behind = FilledIn(texts[kLinesBehindText], std::to_string(status.linesBehind));
    SetAge(text, std::chrono::seconds(state.SamplingSeconds), status, texts);
    return text;
}

} // namespace quorvane
