#include "measure/Exposure.h"

#include <cmath>

namespace quorvane {

using namespace std::chrono_literals;

namespace {

constexpr auto kShortTerm = 15min;
constexpr auto kExcursionDistance = 1h;
constexpr auto kSpan = 8h;
constexpr std::int32_t kExcursionsTooMany = 5;

} // namespace

int WindowLength(int samplingSeconds)
{
    constexpr int kWindowSeconds = 900;
    const int length =
        static_cast<int>(std::nearbyint(static_cast<double>(kWindowSeconds) / samplingSeconds));
    return length * samplingSeconds < kWindowSeconds ? length + 1 : length;
}

double ShortTermAverage(std::span<const double> window, int length)
{
    double sum = 0;
    int count = 0;
    for (const double conc : window.first(static_cast<std::size_t>(length))) {
        if (conc == kEmptySlot)
            break;
        sum += conc;
        ++count;
    }
    return count == 0 ? 0 : sum / count;
}

void Exposure::Begin(int samplingSeconds)
{
    ConcWindow.fill(kEmptySlot);
    ConcWindowLength = WindowLength(samplingSeconds);
    ConcSum = 0;
    StelReady = false;
    AboveTwa = false;
    ExcursionCount = 0;
}

void Exposure::Add(std::int32_t sample, double conc)
{
    const int place = (sample - 1) % ConcWindowLength;
    ConcWindow.at(static_cast<std::size_t>(place)) = conc;
    ConcSum += conc;
}

LampsLit Exposure::Check(std::int32_t sample, double conc, double twa, double stel, LocalMoment moment)
{
    LampsLit lit;
    lit.ceiling = conc >= limits_.CAlarm;

    if (sample == 1) {
        StelStart = moment;
        EightHourStart = moment;
    }
    if (moment - StelStart > kShortTerm)
        StelReady = true;
    lit.stel = StelReady && stel > limits_.StelAlarm;

    if (CheckExcursion(stel, moment))
        lit.stel = true;
    if (CheckSpan(moment))
        lit.stel = true;

    lit.twa = twa > limits_.TwaAlarm;
    return lit;
}

/// @return whether an excursion begins too soon after the one before
bool Exposure::CheckExcursion(double stel, LocalMoment moment)
{
    if (AboveTwa) {
        if (stel <= limits_.TwaAlarm) {
            LastExcursionEnd = moment;
            AboveTwa = false;
        }
        return false;
    }
    if (!StelReady || stel < limits_.TwaAlarm)
        return false;
    AboveTwa = true;
    ++ExcursionCount;
    return ExcursionCount > 1 && moment - LastExcursionEnd <= kExcursionDistance;
}

/// @return whether there are too many excursions in the span
bool Exposure::CheckSpan(LocalMoment moment)
{
    if (moment - EightHourStart > kSpan) {
        StartSpan(moment);
        return false;
    }
    return ExcursionCount >= kExcursionsTooMany;
}

void Exposure::StartSpan(LocalMoment moment)
{
    EightHourStart = moment;
    ExcursionCount = 0;
}

} // namespace quorvane
