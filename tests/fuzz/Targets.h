#pragma once

#include <string_view>

namespace quorvane {

// Each tries one input, whatever bytes it has, and aborts when something does not hold. The effort for an
// input grows with its length only, so that one that takes long is a fault too.

void TryReplyLine(std::string_view input); ///< one data line
void TryLines(std::string_view input);     ///< a run from an instrument that sends these bytes
void TrySettings(std::string_view input);  ///< "Quorvane.ini"
void TryDataFile(std::string_view input);  ///< a data file
void TryProfile(std::string_view input);   ///< a private-profile file
void TryDateTimes(std::string_view input); ///< regional settings, and dates and times by them
void TryJournal(std::string_view input);   ///< the journal of a run

struct Target {
    std::string_view name; ///< of its folder of inputs, too
    void (*tries)(std::string_view);
};
inline constexpr Target kTargets[] = {
    {"reply-line", TryReplyLine}, {"lines", TryLines},     {"settings", TrySettings},
    {"data-file", TryDataFile},   {"profile", TryProfile}, {"date-times", TryDateTimes},
    {"journal", TryJournal},
};

} // namespace quorvane
