#include "graph/Curves.h"

namespace quorvane {

ChartView ViewOf(const GraphFlags& flags)
{
    if (flags.RelativeCFlg || flags.RelativeIntegratedFlg)
        return ChartView::Relative;
    if (flags.MassCFlg || flags.MassIntegratedFlg || flags.MassTWAFlg || flags.MassSTELFlg)
        return ChartView::Mass;
    return ChartView::None;
}

bool IsCharted(const Curve& curve, const GraphFlags& flags)
{
    return flags.*curve.flag && curve.view == ViewOf(flags);
}

bool IsCharted(const Curve& curve, const GraphFlags& flags, const MeasurementArrays& arrays)
{
    return IsCharted(curve, flags) && (arrays.Averages || !curve.isAverage);
}

} // namespace quorvane
