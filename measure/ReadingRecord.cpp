#include "measure/ReadingRecord.h"

#include "measure/ReplyLine.h"

#include <utility>

namespace quorvane {

ReadingRecord::ReadingRecord(const MeasureSettings& settings, const AlarmLimits& limits,
                             MeasurementArrays& arrays)
    : settings_(settings), arrays_(arrays), exposure_(limits)
{
}

void ReadingRecord::Begin(LocalMoment start)
{
    arrays_.Create(static_cast<std::int32_t>(settings_.TotalSamples));
    exposure_.Begin(settings_.SamplingSeconds);
    clock_.Begin(start);
}

LampsLit ReadingRecord::Store(std::int32_t sample)
{
    const auto i = static_cast<std::size_t>(sample);
    Reading reading = ParseReplyLine(arrays_.ReplyLine[i]);
    arrays_.Moment[i] = clock_.Next(reading.time);
    arrays_.MeasureTime[i] = std::move(reading.time);
    arrays_.CountValue[i] = reading.count;
    arrays_.ConcValue[i] = reading.conc;
    arrays_.ExtraField[i] = std::move(reading.extra);
    arrays_.IntegratedCount[i] = reading.count + arrays_.IntegratedCount[i - 1];
    arrays_.IntegratedConc[i] = reading.conc + arrays_.IntegratedConc[i - 1];

    exposure_.Add(sample, reading.conc);
    arrays_.DerivedValueA[i] = exposure_.TimeWeightedAverage(sample);
    arrays_.DerivedValueB[i] = exposure_.ShortTerm();
    return exposure_.Check(sample, reading.conc, arrays_.DerivedValueA[i], arrays_.DerivedValueB[i],
                           arrays_.Moment[i]);
}

void ReadingRecord::StartSpan(std::int32_t sample)
{
    // While a line is awaited, the row that is counted already is still empty.
    auto i = static_cast<std::size_t>(sample);
    if (i > 0 && arrays_.MeasureTime[i].empty())
        --i;
    exposure_.StartSpan(arrays_.Moment[i]);
}

} // namespace quorvane
