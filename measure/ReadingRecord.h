#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "measure/Exposure.h"
#include "measure/MeasurementArrays.h"
#include "measure/ReadingClock.h"

#include <cstdint>

namespace quorvane {

/// Turns the line of a reading into its row of the measurement arrays: fields, running sums, date-time,
/// exposure values.
class ReadingRecord {
public:
    ReadingRecord(const MeasureSettings& settings, const AlarmLimits& limits, MeasurementArrays& arrays);

    /// Re-creates the arrays empty and forgets the run before.
    void Begin(LocalMoment start);

    /// Fills row `sample` from `ReplyLine[sample]`; the rows before it are filled.
    /// @return the lamps that this reading lights
    [[nodiscard]] LampsLit Store(std::int32_t sample);

    /// Starts a new eight-hour span of the excursion rule at the latest reading at or before `sample`.
    void StartSpan(std::int32_t sample);

private:
    const MeasureSettings& settings_;
    MeasurementArrays& arrays_;
    Exposure exposure_;
    ReadingClock clock_;
};

} // namespace quorvane
