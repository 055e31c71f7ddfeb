#pragma once

#include "app/ApplicationState.h"
#include "app/Texts.h"
#include "measure/MeasurementArrays.h"

#include <string>
#include <string_view>

namespace quorvane {

/// What is shown beside the mouse for reading `sample`: its time and the values of the curves shown, each in
/// a line of its own, named as in the live table. Empty without such a reading or such a curve.
[[nodiscard]] std::string ReadingHint(const MeasurementArrays& arrays, const GraphFlags& flags, int sample,
                                      const Texts& texts, std::string_view decimalSign);

} // namespace quorvane
