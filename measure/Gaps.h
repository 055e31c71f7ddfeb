#pragma once

#include "app/LocaleItems.h"
#include "app/Texts.h"
#include "measure/MeasurementArrays.h"
#include "measure/RunGap.h"

#include <span>
#include <string>

namespace quorvane {

/// @return whether readings may be missing in such a gap
[[nodiscard]] constexpr bool LosesReadings(GapKind kind)
{
    return kind != GapKind::ClockSet;
}

/// The gaps, mostly none, that reading `sample` (from 1) came behind. It costs next to nothing in a run
/// without gaps.
[[nodiscard]] std::span<const RunGap> GapsBefore(const MeasurementArrays& arrays, int sample);

/// What a gap was, in one line, and below it from when to when and for how long, as the user's system writes
/// dates and times; the date stands once where it is the same.
[[nodiscard]] std::string GapText(const RunGap& gap, const Texts& texts, const LocaleItems& locale);

} // namespace quorvane
