#pragma once

#include "files/NumberText.h"
#include "measure/MeasurementArrays.h"

#include <string>
#include <string_view>

namespace quorvane {

/// The same with a steady number of decimals, where they are watched: figures must not jump from side to
/// side.
inline constexpr NumberPattern kSteadyAveragePattern{.integerDigits = 1, .minDecimals = 4, .maxDecimals = 4};
inline constexpr NumberPattern kSteadyConcPattern{.integerDigits = 1, .minDecimals = 3, .maxDecimals = 3};

/// The columns of the live table, in its order.
enum class ReadingColumn { Time, Count, Conc, Twa, Stel, IntegratedCount, IntegratedConc };
inline constexpr int kReadingColumns = 7;

/// The text of one value of reading `sample` (from 1), as the data file has it; empty for an average that is
/// not there.
[[nodiscard]] std::string ReadingText(const MeasurementArrays& arrays, int sample, ReadingColumn column,
                                      std::string_view decimalSign);

} // namespace quorvane
