#include "files/DataFile.h"
#include "files/DataFileReader.h"
#include "tests/fuzz/Hold.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/FixedLocale.h"

#include <algorithm>
#include <cmath>

namespace quorvane {
namespace {

std::string Written(const DataFileContents& contents, const std::string& decimalSign)
{
    const auto& extra = contents.arrays.ExtraField;
    return DataFileText(contents.arrays, contents.arrays.FileDate, extra.size() > 1 ? extra[1] : "",
                        contents.count, contents.layout, {.decimalSign = decimalSign, .version = {2, 0, 2}});
}

void HoldArrays(const DataFileContents& contents)
{
    const MeasurementArrays& arrays = contents.arrays;
    const auto rows = static_cast<std::size_t>(contents.count) + 1;
    Hold(contents.count >= 0 && contents.count <= kMaxSamples, "no more readings than a run can have");
    Hold(arrays.MeasureTime.size() == rows && arrays.IntegratedConc.size() == rows,
         "as many rows as readings");
    for (const auto* column : {&arrays.CountValue, &arrays.ConcValue, &arrays.DerivedValueA,
                               &arrays.DerivedValueB, &arrays.IntegratedCount, &arrays.IntegratedConc})
        Hold(std::ranges::all_of(*column, [](double value) { return std::isfinite(value) && value >= 0; }),
             "numbers, none below zero");
    for (const std::string& time : arrays.MeasureTime)
        Hold(time.find('\n') == std::string::npos, "a time has no line's end");
}

void HoldDates(MeasurementArrays& arrays, const std::string& pattern)
{
    FixedLocale locale;
    locale.shortDateFormat = pattern;
    LocaleDescription description;
    const DatingProblem problem = DateReadings(arrays, description, locale, {});
    Hold(arrays.Dated == (problem == DatingProblem::None), "dated, or a reason why not");
    for (std::size_t i = 2; arrays.Dated && i < arrays.Moment.size(); ++i)
        Hold(arrays.Moment[i] >= arrays.Moment[i - 1], "dates never run backwards");
}

/// Whether the rows can be told apart again when they are written with this sign: a time with commas of its
/// own is told from the numbers by the sums alone, which rounding may break.
bool Plain(const MeasurementArrays& arrays)
{
    return std::ranges::none_of(arrays.MeasureTime,
                                [](const std::string& time) { return time.find(',') != std::string::npos; });
}

} // namespace

void TryDataFile(std::string_view input)
{
    DataFileContents contents;
    if (const auto fault = ReadDataFile(input, contents)) {
        Hold(contents.count == 0 && contents.arrays.MeasureTime.empty(), "what is refused leaves nothing");
        Hold(fault->line >= 0 && fault->present <= fault->announced, "the reason makes sense");
        return;
    }
    HoldArrays(contents);
    for (const char* const pattern : {"yyyy/MM/dd", "d.M.yyyy", "MM-dd-yy"})
        HoldDates(contents.arrays, pattern);
    if (!Plain(contents.arrays))
        return;
    const std::string written = Written(contents, ".");
    DataFileContents again;
    Hold(!ReadDataFile(written, again), "what this program writes it reads");
    Hold(Written(again, ".") == written, "what was read and written reads the same");
    Hold(again.arrays.MeasureTime == contents.arrays.MeasureTime, "with the same times");
}

} // namespace quorvane
