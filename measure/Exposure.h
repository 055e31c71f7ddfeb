#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"

#include <array>
#include <cstdint>
#include <span>

namespace quorvane {

/// Marks a position of the ring that holds no value yet.
inline constexpr double kEmptySlot = -9999.0;

/// How many readings make up 15 minutes: 900 s over the interval, rounded to the nearest whole number with
/// halves going to the even neighbour, and one more when these readings would cover less than 15 minutes.
/// 7 s gives 129, 8 s gives 113, 1800 s gives 1.
/// @param samplingSeconds  at least 1
[[nodiscard]] int WindowLength(int samplingSeconds);

/// Short-term average: mean of the newest `length` concentrations, or of those taken so far while the window
/// fills. Summed in ring order, so the last digits are reproducible.
///
/// @param window  ring of concentrations in mg/m3; kEmptySlot marks a position without a value
/// @param length  positions in use, 1 to 900 (15 minutes at the sampling interval)
/// @return mg/m3
[[nodiscard]] double ShortTermAverage(std::span<const double> window, int length);

/// The lamps that one reading lights.
struct LampsLit {
    bool twa = false;
    bool stel = false;
    bool ceiling = false;
};

/// The exposure values of a run and its alarm rules. TWA is the mean over the whole run so far, STEL the mean
/// of the last 15 minutes; beyond the three limits, excursions above the TWA limit have to be an hour apart
/// and at most four in eight hours.
class Exposure {
public:
    explicit Exposure(const AlarmLimits& limits) : limits_(limits) {}

    /// Forgets the run before.
    void Begin(int samplingSeconds);

    /// Takes the concentration of reading `sample` (from 1) into the sum and the ring.
    void Add(std::int32_t sample, double conc);
    /// Mean of all concentrations of the run, mg/m3. There is no eight-hour window.
    [[nodiscard]] double TimeWeightedAverage(std::int32_t sample) const { return ConcSum / sample; }
    [[nodiscard]] double ShortTerm() const { return ShortTermAverage(ConcWindow, ConcWindowLength); }

    /// The alarm rules for one reading, in their order.
    /// The comparisons differ on purpose: ceiling and the start of an excursion take an equal value in, the
    /// STEL and TWA limits leave it out, and an excursion ends at an equal value.
    /// @param moment  date-time of the reading; never earlier than that of the reading before
    [[nodiscard]] LampsLit Check(std::int32_t sample, double conc, double twa, double stel,
                                 LocalMoment moment);

    /// Alarm reset: forgets the counted excursions and starts a new eight-hour span at `moment`.
    void StartSpan(LocalMoment moment);

private:
    [[nodiscard]] bool CheckExcursion(double stel, LocalMoment moment);
    [[nodiscard]] bool CheckSpan(LocalMoment moment);

    const AlarmLimits& limits_;
    std::array<double, 1001> ConcWindow{};
    int ConcWindowLength = 1;
    double ConcSum = 0;
    LocalMoment StelStart{};
    bool StelReady = false;
    bool AboveTwa = false;
    std::int32_t ExcursionCount = 0;
    LocalMoment LastExcursionEnd{};
    LocalMoment EightHourStart{};
};

} // namespace quorvane
