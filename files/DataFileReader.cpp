#include "files/DataFileReader.h"

#include "files/DataFile.h"
#include "files/NumberText.h"
#include "instrument/DateNormaliser.h"
#include "measure/ReadingClock.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <utility>

namespace quorvane {
namespace {

constexpr std::size_t kLongestNumber = 320; // ours never have an exponent: 309 digits, decimal sign, decimals
constexpr std::size_t kLongestText = 10240; // of a date or a time, noise included
constexpr std::int32_t kHeadingLines = 5;
constexpr double kRoundedAway = 0.0015; // of the difference of two values with three decimals

using Fault = std::optional<DataFileFault>;

Fault BadLine(std::int32_t line)
{
    return DataFileFault{.kind = DataFileFaultKind::BadLine, .line = line};
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Lines one after the other, without their ends.
class Lines {
public:
    /// Line ends behind the last line with content end no lines.
    explicit Lines(std::string_view text) : rest_(text.substr(0, text.find_last_not_of("\r\n") + 1)) {}

    [[nodiscard]] std::string_view Next()
    {
        const std::size_t end = rest_.find('\n');
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        return line;
    }
    [[nodiscard]] std::size_t Left() const
    {
        return rest_.empty() ? 0 : static_cast<std::size_t>(std::ranges::count(rest_, '\n')) + 1;
    }

private:
    std::string_view rest_;
};

/// A number as the writer has it: it begins with a digit, for nothing in a data file is below zero.
bool ParseNumber(std::string_view text, double& value)
{
    if (text.empty() || text.size() > kLongestNumber || !IsDigit(text.front()))
        return false;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end;
}

/// A number whose decimal sign is a comma, and so one or two pieces of its line.
bool ParseCommaNumber(std::string_view text, double& value)
{
    if (text.find('.') != std::string_view::npos)
        return false;
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos)
        return ParseNumber(text, value);
    if (comma + 1 == text.size() || !IsDigit(text[comma + 1]))
        return false;
    std::string number(text);
    number[comma] = '.';
    return ParseNumber(number, value); // a second comma stops it
}

enum class DecimalSign { Unknown, Point, Comma };

/// A file has one decimal sign, which the first number that shows one settles.
class FileSign {
public:
    [[nodiscard]] bool Agrees(DecimalSign sign)
    {
        if (sign_ == DecimalSign::Unknown)
            sign_ = sign;
        return sign == sign_ || sign == DecimalSign::Unknown;
    }

private:
    DecimalSign sign_ = DecimalSign::Unknown;
};

// ---- heading --------------------------------------------------------------------------------------------

/// A spreadsheet gives every line as many commas as the longest one has.
std::string_view WithoutCommas(std::string_view line)
{
    return line.substr(0, line.find_last_not_of(',') + 1);
}

struct Heading {
    std::string_view date;
    std::int32_t count = 0;
    double factor = 0;
    bool full = true;
};

Fault ReadCount(std::string_view text, std::int32_t& count)
{
    if (text.empty() || !std::ranges::all_of(text, IsDigit))
        return BadLine(3);
    const auto error = std::from_chars(text.data(), text.data() + text.size(), count).ec;
    if (error != std::errc() || count > kMaxSamples)
        return DataFileFault{.kind = DataFileFaultKind::TooLarge};
    return std::nullopt;
}

bool ReadFactor(std::string_view text, double& factor, FileSign& sign)
{
    if (text.find(',') != std::string_view::npos)
        return sign.Agrees(DecimalSign::Comma) && ParseCommaNumber(text, factor);
    const bool point = text.find('.') != std::string_view::npos;
    return sign.Agrees(point ? DecimalSign::Point : DecimalSign::Unknown) && ParseNumber(text, factor);
}

Fault ReadHeading(Lines& lines, Heading& heading, FileSign& sign)
{
    constexpr std::string_view kKeys[] = {kVersionKey, kDateKey, kCountKey, kFactorKey};
    std::string_view values[std::size(kKeys)];
    for (std::size_t i = 0; i < std::size(kKeys); ++i) {
        const std::string_view line = lines.Next();
        if (!line.starts_with(kKeys[i]))
            return DataFileFault{};
        values[i] = WithoutCommas(line.substr(kKeys[i].size()));
    }
    const std::string_view columns = WithoutCommas(lines.Next());
    if (columns != kFullHeading && columns != kShortHeading)
        return DataFileFault{};
    heading.full = columns == kFullHeading;
    heading.date = values[1];
    if (heading.date.size() > kLongestText)
        return BadLine(2);
    if (Fault fault = ReadCount(values[2], heading.count))
        return fault;
    if (!ReadFactor(values[3], heading.factor, sign))
        return BadLine(4);
    return std::nullopt;
}

// ---- rows -----------------------------------------------------------------------------------------------

struct Row {
    std::string_view time;
    double count = 0, conc = 0, twa = 0, stel = 0, integratedCount = 0, integratedConc = 0;
};

/// Takes the columns of numbers off the right end of a line. What is left is the time, which may hold commas
/// of its own: the instrument's line is written as it came.
class ColumnTaker {
public:
    ColumnTaker(std::string_view line, bool comma) : rest_(line), comma_(comma) {}

    /// @param pieces  between commas that the number takes, 1 or 2
    [[nodiscard]] bool Take(double& value, int pieces)
    {
        std::size_t at = rest_.rfind(',');
        if (pieces == 2 && at != std::string_view::npos && at > 0)
            at = rest_.rfind(',', at - 1);
        if (at == std::string_view::npos)
            return false;
        const std::string_view number = rest_.substr(at + 1);
        rest_ = rest_.substr(0, at);
        return comma_ ? ParseCommaNumber(number, value) : ParseNumber(number, value);
    }
    [[nodiscard]] std::string_view Rest() const { return rest_; }

private:
    std::string_view rest_;
    bool comma_;
};

class RowReader {
public:
    RowReader(bool full, FileSign sign) : full_(full), sign_(sign) {}

    [[nodiscard]] std::optional<Row> Read(std::string_view line)
    {
        const bool point = HasPoint(line);
        if (!sign_.Agrees(point ? DecimalSign::Point : DecimalSign::Comma))
            return std::nullopt;
        std::optional<Row> row = point ? PointRow(line) : CommaRow(line);
        if (row)
            previous_ = *row;
        return row;
    }

private:
    /// With a comma as decimal sign a row has more pieces than columns, and no point in the last one; with a
    /// point the last column holds one, unless a spreadsheet has taken ".0" away.
    [[nodiscard]] bool HasPoint(std::string_view line) const
    {
        const auto columns = full_ ? 7 : 5;
        const std::string_view last = line.substr(line.rfind(',') + 1);
        return std::ranges::count(line, ',') + 1 == columns || last.find('.') != std::string_view::npos;
    }

    /// Counts are whole numbers; averages and the integrated concentration always have a decimal sign.
    [[nodiscard]] std::optional<Row> Columns(std::string_view line, bool comma, int concPieces) const
    {
        const int pieces = comma ? 2 : 1;
        ColumnTaker columns(line, comma);
        Row row;
        const bool taken = columns.Take(row.integratedConc, pieces) && columns.Take(row.integratedCount, 1) &&
                           (!full_ || (columns.Take(row.stel, pieces) && columns.Take(row.twa, pieces))) &&
                           columns.Take(row.conc, concPieces) && columns.Take(row.count, 1);
        row.time = columns.Rest();
        if (!taken || row.time.size() > kLongestText)
            return std::nullopt;
        return row;
    }

    [[nodiscard]] std::optional<Row> PointRow(std::string_view line) const
    {
        std::optional<Row> row = Columns(line, false, 1);
        return row && (IsPlain(*row) || Fits(row)) ? row : std::nullopt;
    }
    /// The concentration is one piece or two.
    [[nodiscard]] std::optional<Row> CommaRow(std::string_view line) const
    {
        const std::optional<Row> whole = Columns(line, true, 1);
        const std::optional<Row> fraction = Columns(line, true, 2);
        const bool wholeFits = Fits(whole);
        const bool fractionFits = Fits(fraction);
        if (wholeFits != fractionFits)
            return wholeFits ? whole : fraction;
        for (const auto& row : {fraction, whole})
            if (row && IsPlain(*row))
                return row;
        return std::nullopt;
    }

    [[nodiscard]] static bool IsPlain(const Row& row) { return row.time.find(',') == std::string_view::npos; }
    /// Whether the integrated values have grown by the row's own. A time that holds commas is told from the
    /// numbers by that, and by nothing less.
    [[nodiscard]] bool Fits(const std::optional<Row>& row) const
    {
        return row &&
               std::abs(row->integratedCount - previous_.integratedCount - row->count) < kRoundedAway &&
               std::abs(row->integratedConc - previous_.integratedConc - row->conc) < kRoundedAway;
    }

    bool full_;
    FileSign sign_;
    Row previous_;
};

void StoreRow(const Row& row, std::size_t i, MeasurementArrays& arrays)
{
    arrays.MeasureTime[i] = row.time;
    arrays.CountValue[i] = row.count;
    arrays.ConcValue[i] = row.conc;
    arrays.DerivedValueA[i] = row.twa;
    arrays.DerivedValueB[i] = row.stel;
    arrays.IntegratedCount[i] = row.integratedCount;
    arrays.IntegratedConc[i] = row.integratedConc;
}

Fault ReadRows(Lines& lines, std::int32_t announced, RowReader reader, MeasurementArrays& arrays)
{
    const std::size_t left = lines.Left();
    const auto wanted = static_cast<std::size_t>(announced);
    const auto count = static_cast<std::int32_t>(std::min(left, wanted));
    arrays.Create(count);
    for (std::int32_t i = 1; i <= count; ++i) {
        if (const auto row = reader.Read(lines.Next())) {
            StoreRow(*row, static_cast<std::size_t>(i), arrays);
            continue;
        }
        if (i == count && left < wanted) // cut off in the middle of this row
            return DataFileFault{DataFileFaultKind::FewerRows, 0, announced, i - 1};
        return BadLine(kHeadingLines + i);
    }
    if (left < wanted)
        return DataFileFault{DataFileFaultKind::FewerRows, 0, announced, count};
    if (left > wanted)
        return DataFileFault{DataFileFaultKind::MoreRows, 0, announced, 0};
    return std::nullopt;
}

// ---- dates ----------------------------------------------------------------------------------------------

/// @param text  "yyyy/MM/dd", or the error text of the two-digit years
std::optional<std::chrono::local_days> CalendarDay(std::string_view text)
{
    using namespace std::chrono;
    if (text.size() != 10)
        return std::nullopt;
    const auto field = [text](std::size_t at, std::size_t digits) {
        return static_cast<int>(LeadingNumber(text.substr(at, digits)));
    };
    const year_month_day date(year(field(0, 4)), month(static_cast<unsigned>(field(5, 2))),
                              day(static_cast<unsigned>(field(8, 2))));
    return date.ok() ? std::optional(local_days(date)) : std::nullopt;
}

} // namespace

std::optional<DataFileFault> ReadDataFile(std::string_view text, DataFileContents& contents)
{
    if (text.size() > kLargestDataFile)
        return DataFileFault{.kind = DataFileFaultKind::TooLarge};
    Lines lines(text);
    Heading heading;
    FileSign sign;
    if (Fault fault = ReadHeading(lines, heading, sign))
        return fault;
    MeasurementArrays arrays;
    if (Fault fault = ReadRows(lines, heading.count, RowReader(heading.full, sign), arrays))
        return fault;
    arrays.Averages = heading.full;
    arrays.FileDate = heading.date;
    if (heading.factor > 0) {
        arrays.ExtraField.resize(
            std::max<std::size_t>(arrays.ExtraField.size(), 2)); // a file without rows, too
        arrays.ExtraField[1] = GeneralText(heading.factor * 1000);
    }
    contents = {std::move(arrays), heading.count, heading.full ? kFullLayout : kShortLayout};
    return std::nullopt;
}

DatingProblem DateReadings(MeasurementArrays& arrays, LocaleDescription& description,
                           const LocaleItems& locale, LocalMoment now)
{
    arrays.Dated = false;
    const auto day = CalendarDay(NormalisedDate(arrays.FileDate, description, locale, now));
    if (!day)
        return DatingProblem::Date;
    std::vector<LocalMoment> moments(arrays.MeasureTime.size());
    LocalMoment midnight = *day;
    std::chrono::seconds previous{};
    for (std::size_t i = 1; i < moments.size(); ++i) {
        const auto time = TimeOfDay(arrays.MeasureTime[i]);
        if (!time)
            return DatingProblem::Time;
        if (*time < previous)
            midnight += std::chrono::days(1);
        previous = *time;
        moments[i] = midnight + *time;
    }
    arrays.Moment = std::move(moments);
    arrays.Dated = true;
    return DatingProblem::None;
}

} // namespace quorvane
