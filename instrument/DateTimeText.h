#pragma once

#include "app/LocalClock.h"
#include "app/LocaleItems.h"

#include <string>

namespace quorvane {

/// The date of `moment` as the user's system writes a short date.
[[nodiscard]] std::string SystemDateText(LocalMoment moment, const LocaleItems& locale);

/// Date, one blank, time, as the user's system writes them.
[[nodiscard]] std::string SystemDateTimeText(LocalMoment moment, const LocaleItems& locale);

/// Date and time for a file's name, the same everywhere: "20240501-093000".
[[nodiscard]] std::string FileStamp(LocalMoment moment);

/// The time of day in the form of the instrument's lines: "hh:mm:ss", 24 hours.
[[nodiscard]] std::string InstrumentTimeText(LocalMoment moment);

} // namespace quorvane
