#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"

namespace quorvane {

/// Learns how the user's system writes dates and times. Read afresh before every conversion, so a change of
/// the regional settings while the program runs takes effect.
///
/// `DateSeparator` is the first character of the system's; any century but "0" means four digits. The
/// positions are those of `CutDate` in today's date text: a position is 0 when that text has no such field,
/// and the field that comes first is at 1 even when the format begins with other text.
///
/// @param now  the date whose text tells where the fields of a date stand
void AnalyseLocale(LocaleDescription& description, const LocaleItems& locale, LocalMoment now);

} // namespace quorvane
