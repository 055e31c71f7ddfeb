#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "measure/RunGap.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane {

/// The readings of a run. Every array counts from 1; index 0 exists and holds 0 or an empty text, so that
/// the running sums need no first case.
struct MeasurementArrays {
    std::vector<std::string> MeasureTime; ///< time of day as the instrument wrote it
    std::vector<double> CountValue;       ///< relative concentration, counts per minute
    std::vector<double> ConcValue;        ///< mg/m3
    std::vector<double> DerivedValueA;    ///< time-weighted average since the start of the run, mg/m3
    std::vector<double> DerivedValueB;    ///< average of the last 15 minutes, mg/m3
    std::vector<double> IntegratedCount;  ///< running sum of `CountValue`
    std::vector<double> IntegratedConc;   ///< running sum of `ConcValue`
    std::vector<std::string> ExtraField;  ///< the instrument's factor in thousandths, empty when it sent none
    std::vector<std::string> ReplyLine;   ///< the whole line as received
    std::vector<LocalMoment> Moment;      ///< date and time of the reading
    std::vector<RunGap> Gaps;             ///< in the order of `before`; most runs have none

    bool Simulated = false; ///< the readings are made up
    bool Dated = true;      ///< `Moment` can be relied upon; not so for a file with a bad date or time
    bool Averages = true;   ///< `DerivedValueA` and `DerivedValueB` are there; a short data file has none
    std::string FileDate;   ///< as it stands in the data file that the readings come from; empty for a run's

    /// Makes all arrays anew for readings 1 to `totalSamples`, everything 0 or empty, as for a measured run.
    void Create(std::int32_t totalSamples);
};

/// Whether the readings that are shown are made up, whatever mode has been chosen since; before there are
/// any, whether the next ones will be.
[[nodiscard]] bool ShowsSimulated(const ApplicationState& state, const MeasurementArrays& arrays);

} // namespace quorvane
