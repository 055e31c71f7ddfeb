#include "measure/MeasurementArrays.h"

#include <algorithm>
#include <cstddef>

namespace quorvane {

void MeasurementArrays::Create(std::int32_t totalSamples)
{
    const std::size_t size = static_cast<std::size_t>(std::max(totalSamples, 0)) + 1;
    for (auto* texts : {&MeasureTime, &ExtraField, &ReplyLine})
        texts->assign(size, {});
    for (auto* numbers :
         {&CountValue, &ConcValue, &DerivedValueA, &DerivedValueB, &IntegratedCount, &IntegratedConc})
        numbers->assign(size, 0);
    Moment.assign(size, {});
    Gaps.clear();
    Simulated = false;
    Dated = Averages = true;
    FileDate.clear();
}

bool ShowsSimulated(const ApplicationState& state, const MeasurementArrays& arrays)
{
    return state.SampleCount > 0 ? arrays.Simulated : !state.RunMode;
}

} // namespace quorvane
