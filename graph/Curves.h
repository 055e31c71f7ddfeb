#pragma once

#include "app/ApplicationState.h"
#include "graph/ChartControl.h"
#include "measure/MeasurementArrays.h"
#include "measure/ReadingText.h"

#include <array>
#include <vector>

namespace quorvane {

/// What a series of the chart shows.
struct Curve {
    ChartView view;
    bool GraphFlags::*flag;
    std::vector<double> MeasurementArrays::*values;
    ReadingColumn column;
    bool isAverage; ///< there only with `MeasurementArrays::Averages`
};

/// By position of the series.
inline constexpr std::array<Curve, kChartSeriesCount> kCurves = {{
    {ChartView::Relative, &GraphFlags::RelativeCFlg, &MeasurementArrays::CountValue, ReadingColumn::Count,
     false},
    {ChartView::Mass, &GraphFlags::MassCFlg, &MeasurementArrays::ConcValue, ReadingColumn::Conc, false},
    {ChartView::Mass, &GraphFlags::MassTWAFlg, &MeasurementArrays::DerivedValueA, ReadingColumn::Twa, true},
    {ChartView::Mass, &GraphFlags::MassSTELFlg, &MeasurementArrays::DerivedValueB, ReadingColumn::Stel, true},
    {ChartView::Relative, &GraphFlags::RelativeIntegratedFlg, &MeasurementArrays::IntegratedCount,
     ReadingColumn::IntegratedCount, false},
    {ChartView::Mass, &GraphFlags::MassIntegratedFlg, &MeasurementArrays::IntegratedConc,
     ReadingColumn::IntegratedConc, false},
}};

/// Which view the flags choose: one relative flag is enough for the relative view, whatever the others say.
[[nodiscard]] ChartView ViewOf(const GraphFlags& flags);

/// Whether the curve is asked for and belongs to the view that is shown.
[[nodiscard]] bool IsCharted(const Curve& curve, const GraphFlags& flags);

/// The same, for readings that have its values.
[[nodiscard]] bool IsCharted(const Curve& curve, const GraphFlags& flags, const MeasurementArrays& arrays);

} // namespace quorvane
