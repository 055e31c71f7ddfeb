#include "measure/Gaps.h"

#include "instrument/DateTimeText.h"
#include "measure/RunStatusText.h"
#include "resources/OwnTexts.h"

#include <algorithm>

namespace quorvane {
namespace {

int NameOf(GapKind kind)
{
    switch (kind) {
    case GapKind::PortLost:
        break;
    case GapKind::Standstill:
        return kStandstillGapText;
    case GapKind::ClockSet:
        return kClockSetGapText;
    }
    return kPortLostGapText;
}

} // namespace

std::span<const RunGap> GapsBefore(const MeasurementArrays& arrays, int sample)
{
    const auto begin = std::ranges::lower_bound(arrays.Gaps, sample, {}, &RunGap::before);
    return {begin, std::ranges::upper_bound(begin, arrays.Gaps.end(), sample, {}, &RunGap::before)};
}

std::string GapText(const RunGap& gap, const Texts& texts, const LocaleItems& locale)
{
    using std::chrono::days;
    const bool sameDay = floor<days>(gap.from) == floor<days>(gap.to);
    const std::string from = SystemDateTimeText(gap.from, locale);
    const std::string to = sameDay ? SystemTimeText(gap.to, locale) : SystemDateTimeText(gap.to, locale);
    const bool lasted = LosesReadings(gap.kind);
    std::string times = FilledIn(FilledIn(texts[lasted ? kGapTimesText : kClockTimesText], from), to);
    if (lasted)
        times = FilledIn(times, DurationText(std::max(std::chrono::seconds(0), gap.to - gap.from)));
    return texts[NameOf(gap.kind)].append("\n").append(times);
}

} // namespace quorvane
