#pragma once

#include "cli/MeasureOptions.h"

namespace quorvane {

/// Measures, prints and saves. @return the exit status
int RunMeasureCommand(const MeasureOptions& options);

} // namespace quorvane
