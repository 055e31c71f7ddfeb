#include "graph/ChartSteps.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace quorvane {
namespace {

constexpr double kMinute = 60;
constexpr double kHour = 60 * kMinute;
constexpr double kDay = 24 * kHour;
constexpr double kTimeSteps[] = {
    1,       2,           5,           10,           15,           30,           //
    kMinute, 2 * kMinute, 5 * kMinute, 10 * kMinute, 15 * kMinute, 30 * kMinute, //
    kHour,   2 * kHour,   3 * kHour,   6 * kHour,    12 * kHour,   kDay};

} // namespace

double RoundTimeStep(double seconds)
{
    const auto* const step = std::ranges::lower_bound(kTimeSteps, seconds);
    return step != std::end(kTimeSteps) ? *step : RoundValueStep(seconds / kDay) * kDay;
}

double RoundValueStep(double step)
{
    if (!std::isfinite(step) || step <= 0)
        return 1;
    const double power = std::pow(10, std::floor(std::log10(step)));
    for (const double factor : {1, 2, 5})
        if (factor * power >= step)
            return factor * power;
    return 10 * power;
}

int DecimalsOfStep(double step)
{
    // 0.001 is a hair less than a thousandth
    return std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
}

} // namespace quorvane
