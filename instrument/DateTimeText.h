#pragma once

#include "app/LocalClock.h"
#include "app/LocaleItems.h"

#include <string>
#include <string_view>

namespace quorvane {

/// `moment` in pattern letters as `LocaleItems` gives them; the signs for the half of the day are the user's.
[[nodiscard]] std::string TextInPattern(LocalMoment moment, std::string_view pattern,
                                        const LocaleItems& locale);

/// The date of `moment` as the user's system writes a short date.
[[nodiscard]] std::string SystemDateText(LocalMoment moment, const LocaleItems& locale);

/// The time of day of `moment` as the user's system writes it.
[[nodiscard]] std::string SystemTimeText(LocalMoment moment, const LocaleItems& locale);

/// Date, one blank, time, as the user's system writes them.
[[nodiscard]] std::string SystemDateTimeText(LocalMoment moment, const LocaleItems& locale);

/// Date and time for a file's name, the same everywhere: "20240501-093000".
[[nodiscard]] std::string FileStamp(LocalMoment moment);

/// The time of day in the form of the instrument's lines: "hh:mm:ss", 24 hours.
[[nodiscard]] std::string InstrumentTimeText(LocalMoment moment);

} // namespace quorvane
