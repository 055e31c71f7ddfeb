#pragma once

#include "app/ProgramVersion.h"
#include "app/Texts.h"
#include "files/CodePage.h"
#include "files/FileStore.h"
#include "files/NumberText.h"
#include "measure/MeasurementArrays.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// What the first four lines of a data file begin with.
inline constexpr std::string_view kVersionKey = "Program Ver.,";
inline constexpr std::string_view kDateKey = "Date,";
inline constexpr std::string_view kCountKey = "Data,";
inline constexpr std::string_view kFactorKey = "K Factor,";
/// The fifth line, which tells the layouts apart.
inline constexpr std::string_view kFullHeading =
    "Time,Relative Concentration([CPM]),Mass Concentration([mg/m3]),Mass Concentration(TWA)([mg/m3]),"
    "Mass Concentration(STEL)([mg/m3]),Relative Concentration(Integrated Value[CPM]),"
    "Mass Concentration(Integrated Value[mg/m3])";
inline constexpr std::string_view kShortHeading =
    "Time,Relative Concentration([CPM]),Mass Concentration([mg/m3]),"
    "Relative Concentration(Integrated Value[CPM]),Mass Concentration(Integrated Value[mg/m3])";

/// How averages (TWA, STEL) and integrated mass concentrations are written; counts and concentrations are
/// written in general form.
inline constexpr NumberPattern kAveragePattern{.integerDigits = 1, .minDecimals = 1, .maxDecimals = 4};
inline constexpr NumberPattern kIntegratedPattern{.integerDigits = 1, .minDecimals = 1, .maxDecimals = 3};

/// Layouts of a data file.
inline constexpr std::int16_t kFullLayout = 0;  ///< with the exposure averages
inline constexpr std::int16_t kShortLayout = 1; ///< without them

/// What a file dialog offers for data files: pairs of description and pattern, as of a `SaveQuestion`, and
/// the pair chosen at first.
[[nodiscard]] std::string DataFileFilter(const Texts& texts);
inline constexpr int kDataFileFilterIndex = 2;

/// How a data file's numbers and its version line are written.
struct DataFormat {
    std::string decimalSign; ///< of the user's number format
    ProgramVersion version;
};

/// What the writer of a data file works with.
struct DataFileContext {
    FileStore& store;
    const CodePage& codePage;
    const MeasurementArrays& arrays;
    DataFormat format;
};

/// The text of a data file, UTF-8: readings 1 to `count` as comma-separated lines below five lines of
/// heading.
///
/// @param factorText  the instrument's factor in thousandths, "." for the decimal sign; no number counts as 0
/// @param count       at most the readings that `arrays` holds
/// @param layout      any other value than the two layouts gives the first four lines alone
[[nodiscard]] std::string DataFileText(const MeasurementArrays& arrays, const std::string& dateText,
                                       const std::string& factorText, std::int32_t count, std::int16_t layout,
                                       const DataFormat& format);

/// Writes such a file to `path` (UTF-8) in the user's code page. An old file of that name is replaced when
/// everything is on the disk, and not before.
[[nodiscard]] std::optional<FileFault> WriteDataFile(const std::string& path, const std::string& dateText,
                                                     const std::string& factorText, std::int32_t count,
                                                     std::int16_t layout, const DataFileContext& context);

} // namespace quorvane
