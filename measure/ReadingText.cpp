#include "measure/ReadingText.h"

#include "files/DataFile.h"

namespace quorvane {

std::string ReadingText(const MeasurementArrays& arrays, int sample, ReadingColumn column,
                        std::string_view decimalSign)
{
    const auto i = static_cast<std::size_t>(sample);
    if (!arrays.Averages && (column == ReadingColumn::Twa || column == ReadingColumn::Stel))
        return {};
    switch (column) {
    case ReadingColumn::Time:
        return arrays.MeasureTime[i];
    case ReadingColumn::Count:
        return GeneralText(arrays.CountValue[i], decimalSign);
    case ReadingColumn::Conc:
        return GeneralText(arrays.ConcValue[i], decimalSign);
    case ReadingColumn::Twa:
        return PatternText(arrays.DerivedValueA[i], kAveragePattern, decimalSign);
    case ReadingColumn::Stel:
        return PatternText(arrays.DerivedValueB[i], kAveragePattern, decimalSign);
    case ReadingColumn::IntegratedCount:
        return GeneralText(arrays.IntegratedCount[i], decimalSign);
    case ReadingColumn::IntegratedConc:
        break;
    }
    return PatternText(arrays.IntegratedConc[i], kIntegratedPattern, decimalSign);
}

} // namespace quorvane
