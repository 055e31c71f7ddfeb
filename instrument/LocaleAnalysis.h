#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"

namespace quorvane {

/// Learns how the user's system writes dates and times. Read afresh before every conversion, so a change of
/// the regional settings while the program runs takes effect.
///
/// @param now  the date whose text tells where the fields of a date stand
void AnalyseLocale(LocaleDescription& description, const LocaleItems& locale, LocalMoment now);

} // namespace quorvane
