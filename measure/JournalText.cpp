#include "measure/JournalText.h"

#include "app/ApplicationState.h"
#include "app/FixedForm.h"
#include "instrument/DateTimeText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace quorvane {
namespace {

constexpr std::string_view kJournalSign = "QuorvaneJournal ";
constexpr std::int32_t kJournalVersion = 1;
constexpr std::string_view kMomentForm = "YYYY-MM-DD hh:mm:ss";
constexpr std::size_t kChecksumDigits = 8;
constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::string_view kInstrumentWord = "instrument";
constexpr std::string_view kSimulatedWord = "simulated";
constexpr std::array<std::string_view, 3> kGapWords{"port-lost", "standstill", "clock-set"}; // as `GapKind`

constexpr std::array<std::uint32_t, 256> MakeChecksumTable()
{
    constexpr std::uint32_t kReflectedPolynomial = 0xEDB88320U;
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t rest = byte;
        for (int bit = 0; bit < 8; ++bit)
            rest = (rest & 1U) != 0 ? rest >> 1U ^ kReflectedPolynomial : rest >> 1U;
        table.at(byte) = rest;
    }
    return table;
}

constexpr auto kChecksumTable = MakeChecksumTable();

std::string ChecksumText(std::string_view record)
{
    const std::uint32_t sum = Checksum(record);
    std::string text;
    for (unsigned shift = 32; shift > 0; shift -= 4)
        text += kHexDigits[sum >> (shift - 4) & 0xFU];
    return text;
}

std::string Sealed(std::string record)
{
    record += ChecksumText(record);
    record += '\n';
    return record;
}

/// Between quotation marks, of printable ASCII only, so that a record is one line in any editor.
std::string QuotedLine(std::string_view line)
{
    std::string text(1, '"');
    for (const char c : line) {
        if (c == '\r') {
            text += "\\r";
        } else if (c == '\n') {
            text += "\\n";
        } else if (c == '"' || c == '\\') {
            text += '\\';
            text += c;
        } else if (c >= ' ' && c <= '~') {
            text += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            text += "\\x";
            text += kHexDigits[byte >> 4U];
            text += kHexDigits[byte & 0xFU];
        }
    }
    text += '"';
    return text;
}

/// The fields of a record, one after the other. What does not fit makes it fail, and it stays so.
class RecordReader {
public:
    explicit RecordReader(std::string_view record) : rest_(record) {}

    [[nodiscard]] bool Whole() const { return good_ && rest_.empty(); }

    void Take(std::string_view text)
    {
        good_ = good_ && rest_.starts_with(text);
        if (good_)
            rest_.remove_prefix(text.size());
    }

    /// Up to a blank, which is taken too.
    std::string_view Word()
    {
        const std::size_t end = std::min(rest_.find(' '), rest_.size());
        const std::string_view word = rest_.substr(0, end);
        rest_.remove_prefix(end);
        Take(" ");
        return word;
    }

    std::int32_t Number(std::int32_t least, std::int32_t most)
    {
        const std::string_view word = Word();
        std::int32_t value = 0;
        const auto [stop, error] = std::from_chars(word.data(), word.data() + word.size(), value);
        good_ = good_ && error == std::errc() && stop == word.data() + word.size() && value >= least &&
                value <= most;
        return value;
    }

    LocalMoment Moment()
    {
        const auto moment = MomentInForm(rest_.substr(0, kMomentForm.size()), kMomentForm);
        good_ = good_ && moment;
        rest_.remove_prefix(std::min(kMomentForm.size(), rest_.size()));
        Take(" ");
        return moment.value_or(LocalMoment());
    }

    /// One of `words`. @return its place among them
    template <std::size_t Count>
    std::size_t Choice(const std::array<std::string_view, Count>& words)
    {
        const auto found = std::ranges::find(words, Word());
        good_ = good_ && found != words.end();
        return good_ ? static_cast<std::size_t>(found - words.begin()) : 0;
    }

    std::string Line()
    {
        Take("\"");
        std::string line;
        while (good_ && !rest_.empty() && rest_[0] != '"')
            line += Character();
        Take("\" ");
        return line;
    }

private:
    char Character()
    {
        const char c = rest_[0];
        rest_.remove_prefix(1);
        if (c != '\\')
            return c;
        const char sign = rest_.empty() ? ' ' : rest_[0];
        rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
        switch (sign) {
        case 'r':
            return '\r';
        case 'n':
            return '\n';
        case '"':
        case '\\':
            return sign;
        case 'x':
            return Byte();
        default:
            good_ = false;
            return ' ';
        }
    }

    char Byte()
    {
        unsigned value = 0;
        const std::string_view digits = rest_.substr(0, 2);
        const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        good_ = good_ && error == std::errc() && digits.size() == 2 && stop == digits.data() + digits.size();
        rest_.remove_prefix(digits.size());
        return static_cast<char>(static_cast<unsigned char>(value));
    }

    std::string_view rest_;
    bool good_ = true;
};

/// @return the record without its checksum, nothing when that does not fit
std::optional<std::string_view> Unsealed(std::string_view record)
{
    if (record.size() < kChecksumDigits)
        return std::nullopt;
    const std::string_view said = record.substr(0, record.size() - kChecksumDigits);
    return ChecksumText(said) == record.substr(said.size()) ? std::optional(said) : std::nullopt;
}

bool ReadHead(std::string_view record, JournalHead& head)
{
    const auto said = Unsealed(record);
    if (!said)
        return false;
    RecordReader fields(*said);
    fields.Take(kJournalSign);
    fields.Number(kJournalVersion, kJournalVersion);
    head.start = fields.Moment();
    head.sampling = fields.Number(1, kMaxSamplingSeconds);
    head.totalSamples = fields.Number(1, kMaxSamples);
    head.simulated = fields.Choice(std::array{kInstrumentWord, kSimulatedWord}) == 1;
    head.version = fields.Word();
    return fields.Whole();
}

/// @return whether the first record is of a form that a later version may have brought
bool IsNewer(std::string_view record)
{
    if (!record.starts_with(kJournalSign))
        return false;
    RecordReader fields(record.substr(kJournalSign.size()));
    return fields.Number(0, INT32_MAX) > kJournalVersion;
}

/// Takes the records behind the head, in their order.
class RecordCollector {
public:
    RecordCollector(JournalContents& contents, std::string_view headRecord)
        : contents_(contents), mark_(headRecord.substr(headRecord.size() - kChecksumDigits))
    {
    }

    void Take(std::string_view record)
    {
        if (!TakeReading(record) && !TakeGap(record))
            ++badRecords_;
    }

    void Finish()
    {
        PlaceGaps(INT32_MAX);
        contents_.damaged = std::max(badRecords_, missing_);
    }

private:
    std::optional<std::string_view> Fields(std::string_view record, char letter) const
    {
        if (record.empty() || record[0] != letter)
            return std::nullopt;
        return Unsealed(record);
    }

    bool TakeReading(std::string_view record)
    {
        const auto said = Fields(record, 'R');
        if (!said)
            return false;
        RecordReader fields(*said);
        fields.Take("R ");
        const std::int32_t number = fields.Number(newestReading_ + 1, kMaxSamples);
        const LocalMoment moment = fields.Moment();
        std::string line = fields.Line();
        fields.Take(mark_);
        fields.Take(" ");
        if (!fields.Whole())
            return false;
        missing_ += number - newestReading_ - 1;
        newestReading_ = number;
        contents_.readings.push_back({moment, std::move(line)});
        PlaceGaps(number);
        return true;
    }

    bool TakeGap(std::string_view record)
    {
        const auto said = Fields(record, 'G');
        if (!said)
            return false;
        RecordReader fields(*said);
        fields.Take("G ");
        const std::int32_t number = fields.Number(newestGap_ + 1, INT32_MAX - 1);
        RunGap gap;
        gap.before = fields.Number(newestReading_ + 1, kMaxSamples + 1);
        gap.kind = static_cast<GapKind>(fields.Choice(kGapWords));
        gap.from = fields.Moment();
        gap.to = fields.Moment();
        fields.Take(mark_);
        fields.Take(" ");
        if (!fields.Whole())
            return false;
        newestGap_ = number;
        contents_.gaps.push_back(gap);
        return true;
    }

    /// What could not be read has no row: the gaps stand before the next reading that is there.
    void PlaceGaps(std::int32_t number)
    {
        auto& gaps = contents_.gaps;
        const auto taken = static_cast<std::int32_t>(contents_.readings.size());
        for (; placedGaps_ < gaps.size() && gaps[placedGaps_].before <= number; ++placedGaps_)
            gaps[placedGaps_].before = number == INT32_MAX ? taken + 1 : taken;
    }

    JournalContents& contents_;
    std::string_view mark_;
    std::int32_t newestReading_ = 0;
    std::int32_t newestGap_ = 0;
    std::size_t placedGaps_ = 0;
    std::int32_t badRecords_ = 0;
    std::int32_t missing_ = 0;
};

/// The next record without its line end. @return nothing when there is none that is finished
std::optional<std::string_view> NextRecord(std::string_view& bytes)
{
    const std::size_t end = bytes.find('\n');
    if (end == std::string_view::npos)
        return std::nullopt;
    const std::string_view record = bytes.substr(0, end);
    bytes.remove_prefix(end + 1);
    return record;
}

} // namespace

std::uint32_t Checksum(std::string_view bytes)
{
    std::uint32_t sum = ~0U;
    for (const char c : bytes)
        sum = sum >> 8U ^ kChecksumTable.at((sum ^ static_cast<unsigned char>(c)) & 0xFFU);
    return ~sum;
}

std::string JournalMomentText(LocalMoment moment)
{
    std::string text = FileStamp(moment).substr(0, 8);
    text.insert(6, 1, '-').insert(4, 1, '-');
    return text + ' ' + InstrumentTimeText(moment);
}

JournalPen::JournalPen(const JournalHead& head)
{
    std::string record(kJournalSign);
    for (const std::string& field :
         {std::to_string(kJournalVersion), JournalMomentText(head.start), std::to_string(head.sampling),
          std::to_string(head.totalSamples), std::string(head.simulated ? kSimulatedWord : kInstrumentWord),
          head.version})
        record.append(field).append(1, ' ');
    head_ = Sealed(std::move(record));
    mark_ = head_.substr(head_.size() - kChecksumDigits - 1, kChecksumDigits);
}

std::string JournalPen::Reading(std::int32_t number, LocalMoment moment, std::string_view line) const
{
    return Marked("R " + std::to_string(number) + ' ' + JournalMomentText(moment) + ' ' + QuotedLine(line));
}

std::string JournalPen::Gap(std::int32_t number, const RunGap& gap) const
{
    return Marked("G " + std::to_string(number) + ' ' + std::to_string(gap.before) + ' ' +
                  std::string(kGapWords.at(static_cast<std::size_t>(gap.kind))) + ' ' +
                  JournalMomentText(gap.from) + ' ' + JournalMomentText(gap.to));
}

std::string JournalPen::Marked(std::string record) const
{
    return Sealed(record.append(1, ' ').append(mark_).append(1, ' '));
}

JournalContents ReadJournal(std::string_view bytes)
{
    JournalContents contents;
    const auto head = NextRecord(bytes);
    if (!head)
        return contents;
    if (!ReadHead(*head, contents.head)) {
        contents.state = IsNewer(*head) ? JournalState::Newer : JournalState::Foreign;
        return contents;
    }
    contents.state = JournalState::Readable;
    RecordCollector collector(contents, *head);
    while (const auto record = NextRecord(bytes))
        collector.Take(*record);
    collector.Finish();
    return contents;
}

} // namespace quorvane
