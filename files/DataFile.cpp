#include "files/DataFile.h"

#include "files/NumberText.h"
#include "resources/SystemTexts.h"

#include <algorithm>
#include <string_view>

namespace quorvane {
namespace {

constexpr std::string_view kRowEnd = "\r\n";
constexpr std::size_t kUsualRowLength = 80;

/// Appends the columns of one row.
class RowWriter {
public:
    RowWriter(std::string& out, std::string_view decimalSign) : out_(out), decimalSign_(decimalSign) {}

    RowWriter& General(double value)
    {
        out_.push_back(',');
        AppendGeneral(out_, value, decimalSign_);
        return *this;
    }
    RowWriter& Pattern(double value, NumberPattern pattern)
    {
        out_.push_back(',');
        AppendPattern(out_, value, pattern, decimalSign_);
        return *this;
    }

private:
    std::string& out_;
    std::string_view decimalSign_;
};

void AppendRow(std::string& out, const MeasurementArrays& arrays, std::size_t i, bool full,
               std::string_view decimalSign)
{
    out.append(arrays.MeasureTime[i]);
    RowWriter row(out, decimalSign);
    row.General(arrays.CountValue[i]).General(arrays.ConcValue[i]);
    if (full)
        row.Pattern(arrays.DerivedValueA[i], kAveragePattern)
            .Pattern(arrays.DerivedValueB[i], kAveragePattern);
    row.General(arrays.IntegratedCount[i]).Pattern(arrays.IntegratedConc[i], kIntegratedPattern);
    out.append(kRowEnd);
}

} // namespace

std::string DataFileFilter(const Texts& texts)
{
    return texts[kAllFilesText] + " (*.*)|*.*|CSV FILE (*.csv)|*.CSV|";
}

std::string DataFileText(const MeasurementArrays& arrays, const std::string& dateText,
                         const std::string& factorText, std::int32_t count, std::int16_t layout,
                         const DataFormat& format)
{
    const auto rows = static_cast<std::size_t>(std::max(count, 0));
    const double factor = LeadingNumber(factorText) / 1000;
    std::string text;
    text.reserve((rows + 5) * kUsualRowLength);
    text.append(kVersionKey).append(FileVersionText(format.version)).append(kRowEnd);
    text.append(kDateKey).append(dateText).append(kRowEnd);
    text.append(kCountKey).append(GeneralText(count, format.decimalSign)).append(kRowEnd);
    text.append(kFactorKey).append(GeneralText(factor, format.decimalSign)).append(kRowEnd);
    if (layout != kFullLayout && layout != kShortLayout)
        return text;
    const bool full = layout == kFullLayout;
    text.append(full ? kFullHeading : kShortHeading).append(kRowEnd);
    for (std::size_t i = 1; i <= rows; ++i)
        AppendRow(text, arrays, i, full, format.decimalSign);
    return text;
}

std::optional<FileFault> WriteDataFile(const std::string& path, const std::string& dateText,
                                       const std::string& factorText, std::int32_t count, std::int16_t layout,
                                       const DataFileContext& context)
{
    const std::string text =
        DataFileText(context.arrays, dateText, factorText, count, layout, context.format);
    return context.store.Replace(path, context.codePage.FromUtf8(text));
}

} // namespace quorvane
