#include "graph/ReadingHint.h"

#include "graph/Curves.h"
#include "measure/ReadingText.h"
#include "resources/OwnTexts.h"

namespace quorvane {
namespace {

int TitleId(ReadingColumn column)
{
    switch (column) {
    case ReadingColumn::Time:
        break;
    case ReadingColumn::Count:
        return kCountColumnText;
    case ReadingColumn::Conc:
        return kConcColumnText;
    case ReadingColumn::Twa:
        return kTwaColumnText;
    case ReadingColumn::Stel:
        return kStelColumnText;
    case ReadingColumn::IntegratedCount:
        return kIntegratedCountColumnText;
    case ReadingColumn::IntegratedConc:
        return kIntegratedConcColumnText;
    }
    return kTimeColumnText;
}

} // namespace

std::string ReadingHint(const MeasurementArrays& arrays, const GraphFlags& flags, int sample,
                        const Texts& texts, std::string_view decimalSign)
{
    if (sample < 1 || static_cast<std::size_t>(sample) >= arrays.MeasureTime.size())
        return {};
    std::string values;
    for (const Curve& curve : kCurves) {
        if (!IsCharted(curve, flags, arrays))
            continue;
        values.append("\n").append(texts[TitleId(curve.column)]).append(": ");
        values += ReadingText(arrays, sample, curve.column, decimalSign);
    }
    return values.empty() ? values : ReadingText(arrays, sample, ReadingColumn::Time, decimalSign) + values;
}

} // namespace quorvane
