#include "measure/SimulatedReading.h"

#include "files/NumberText.h"
#include "instrument/DateTimeText.h"

#include <cmath>

namespace quorvane {

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
