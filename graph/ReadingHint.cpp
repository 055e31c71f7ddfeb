#include "graph/ReadingHint.h"

#include "graph/Curves.h"
#include "graph/LiveChart.h"
#include "measure/Gaps.h"
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

std::string GapHint(const MeasurementArrays& arrays, int sample, ChartTime time, const Texts& texts,
                    const LocaleItems& locale)
{
    std::string hint;
    const auto add = [&](int behind) {
        for (const RunGap& gap : GapsBefore(arrays, behind))
            hint.append("\n").append(GapText(gap, texts, locale));
    };
    add(sample);
    if (static_cast<std::size_t>(sample) < arrays.Moment.size() &&
        time > ToChartTime(arrays.Moment[static_cast<std::size_t>(sample)]))
        add(sample + 1);
    return hint;
}

} // namespace quorvane
