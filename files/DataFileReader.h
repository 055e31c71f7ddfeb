#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "measure/MeasurementArrays.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quorvane {

/// Several times what the longest run takes; a larger file is none of ours, whatever it holds.
inline constexpr std::size_t kLargestDataFile = std::size_t{32} << 20U;

enum class DataFileFaultKind {
    NotADataFile, ///< the five lines of heading are not there
    BadLine,      ///< a line of the heading or a row cannot be read
    FewerRows,    ///< the file ends too early
    MoreRows,     ///< there is more than the heading announces
    TooLarge,     ///< larger than `kLargestDataFile`, or more readings than a run can have
};

/// Why a text is not taken for a data file.
struct DataFileFault {
    DataFileFaultKind kind = DataFileFaultKind::NotADataFile;
    std::int32_t line = 0;      ///< of a line that cannot be read, from 1
    std::int32_t announced = 0; ///< readings, when their number is at fault
    std::int32_t present = 0;   ///< readings that are there, when they are fewer
};

/// What a data file holds. The arrays have no `ReplyLine` and no `Moment`; a factor of 0 means that the
/// instrument told none.
struct DataFileContents {
    MeasurementArrays arrays;
    std::int32_t count = 0;  ///< readings, 0 to `kMaxSamples`
    std::int16_t layout = 0; ///< `kFullLayout` or `kShortLayout`
};

/// Takes the text of a data file (UTF-8) apart, with either decimal sign. It also takes what spreadsheets and
/// editors make of one: lines ended by LF alone, empty lines behind the last one, a last line without its
/// end, commas behind the lines of heading. The version is not compared.
///
/// The effort grows with the length of the text only, and nothing is made room for that is not there.
/// @param contents  left as it is when the text is refused
[[nodiscard]] std::optional<DataFileFault> ReadDataFile(std::string_view text, DataFileContents& contents);

enum class DatingProblem { None, Date, Time };

/// Gives the readings of a data file their date-times: the first one is of the file's date, and each one with
/// a time of day before that of its predecessor is of the next day.
///
/// @param description  how the user's system writes dates; brought up to date
/// @return what cannot be read or is not in the calendar, the date before the times; the arrays are not
///         `Dated` then
[[nodiscard]] DatingProblem DateReadings(MeasurementArrays& arrays, LocaleDescription& description,
                                         const LocaleItems& locale, LocalMoment now);

} // namespace quorvane
