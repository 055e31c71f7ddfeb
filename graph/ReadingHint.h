#pragma once

#include "app/ApplicationState.h"
#include "app/LocaleItems.h"
#include "app/Texts.h"
#include "graph/ChartControl.h"
#include "measure/MeasurementArrays.h"

#include <string>
#include <string_view>

namespace quorvane {

/// What is shown beside the mouse for reading `sample`: its time and the values of the curves shown, each in
/// a line of its own, named as in the live table. Empty without such a reading or such a curve.
[[nodiscard]] std::string ReadingHint(const MeasurementArrays& arrays, const GraphFlags& flags, int sample,
                                      const Texts& texts, std::string_view decimalSign);

/// What is shown below that for the gaps that end at reading `sample` or that `time` lies in, each in lines
/// of its own and each line behind a line end. `sample` is the reading nearest to `time`.
[[nodiscard]] std::string GapHint(const MeasurementArrays& arrays, int sample, ChartTime time,
                                  const Texts& texts, const LocaleItems& locale);

} // namespace quorvane
