#include "measure/Pacing.h"

namespace quorvane {

using namespace std::chrono_literals;

Pacing PacingFor(int samplingSeconds, bool withInstrument)
{
    constexpr int kMinute = 60;
    const std::chrono::milliseconds interval = std::chrono::seconds(samplingSeconds);
    if (samplingSeconds < kMinute)
        return {.minutesPerSample = 1, .timer2 = interval - (withInstrument ? 100ms : 0ms), .timer3 = 1ms};

    const std::chrono::milliseconds rest = interval % 1min;
    return {
        .minutesPerSample = samplingSeconds / kMinute, .timer2 = 1min, .timer3 = rest == 0ms ? 1ms : rest};
}

} // namespace quorvane
