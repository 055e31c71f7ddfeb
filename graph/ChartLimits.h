#pragma once

#include "graph/ChartControl.h"

namespace quorvane {

/// What the axes of the chart show.
struct ChartLimits {
    ChartTime bottomMinimum = 0;
    ChartTime bottomMaximum = 0.0006;
    double leftMinimum = 0;
    double leftMaximum = 1;
};

} // namespace quorvane
