#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "app/Texts.h"

#include <string>

namespace quorvane {

/// The time of day of `now` as the user's system writes it, brought into the instrument's form "hh:mm:ss":
/// 24 hours, two digits each, ":00" for what the user's format leaves out. Reads the regional settings into
/// `description` first.
///
/// In the afternoon of a 12-hour clock 12 is added to the hour as it is written, also to 12: half past noon
/// is "24:30:00", half past midnight "12:30:00". A 12-hour format that does not write the half of the day
/// gives the hour as it is written.
[[nodiscard]] std::string NormalisedTime(LocaleDescription& description, const LocaleItems& locale,
                                         const Texts& texts, LocalMoment now);

} // namespace quorvane
