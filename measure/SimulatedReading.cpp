#include "measure/SimulatedReading.h"

#include "files/NumberText.h"
#include "instrument/DateTimeText.h"

#include <cmath>
#include <random>

namespace quorvane {

/// 53 random bits make every double of an even grid in [0, 1) equally likely, on every system the same.
RandomSource MakeRandomSource(const std::optional<std::uint64_t>& seed)
{
    std::mt19937_64 generator(seed ? *seed : std::random_device{}());
    return [generator]() mutable { return static_cast<double>(generator() >> 11U) * 0x1p-53; };
}

std::string SimulatedLine(std::int32_t sample, LocalMoment now, const RandomSource& random)
{
    constexpr std::int32_t kLowSamples = 10;
    const double first = random();
    const double second = random();
    const double conc = second * (sample <= kLowSamples ? 4.0 : 6.0);
    return InstrumentTimeText(now) + ';' + PatternText(std::floor(first * 5.0), {.integerDigits = 7}) + ';' +
           PatternText(conc, {.integerDigits = 3, .minDecimals = 3, .maxDecimals = 3}) + ";1.2";
}

} // namespace quorvane
