#include "app/ApplicationState.h"
#include "measure/JournalText.h"
#include "tests/fuzz/Hold.h"
#include "tests/fuzz/Targets.h"

#include <algorithm>
#include <charconv>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr LocalMoment kStart = std::chrono::local_days(std::chrono::year(2024) / 5 / 1) + 9h;

std::string Written(const JournalContents& contents)
{
    const JournalPen pen(contents.head);
    std::string bytes = pen.Head();
    auto gap = contents.gaps.begin();
    std::int32_t gaps = 0;
    const auto writeGaps = [&](std::int32_t before) {
        for (; gap != contents.gaps.end() && gap->before <= before; ++gap)
            bytes += pen.Gap(++gaps, *gap);
    };
    std::int32_t number = 0;
    for (const JournalReading& reading : contents.readings) {
        writeGaps(++number);
        bytes += pen.Reading(number, reading.moment, reading.line);
    }
    writeGaps(number + 1);
    return bytes;
}

bool Same(const JournalReading& one, const JournalReading& other)
{
    return one.moment == other.moment && one.line == other.line;
}

/// What holds of any bytes.
void HoldContents(const JournalContents& contents)
{
    const auto count = static_cast<std::int32_t>(contents.readings.size());
    Hold(count <= kMaxSamples && contents.damaged >= 0, "no more readings than a run can have");
    if (contents.state != JournalState::Readable) {
        Hold(count == 0 && contents.gaps.empty(), "what is no journal has no readings");
        return;
    }
    Hold(contents.head.sampling >= 1 && contents.head.totalSamples >= 1, "the run is a possible one");
    std::int32_t before = 1;
    for (const RunGap& gap : contents.gaps) {
        Hold(gap.before >= before && gap.before <= count + 1, "gaps lie in the run, in their order");
        before = gap.before;
    }
    const JournalContents again = ReadJournal(Written(contents));
    Hold(again.state == JournalState::Readable && again.damaged == 0, "what is written can be read");
    Hold(std::ranges::equal(again.readings, contents.readings, Same) && again.gaps == contents.gaps,
         "what was read and written reads the same");
}

/// A journal with these lines as readings, and a gap before each that begins with "!".
JournalContents RunOf(std::string_view lines)
{
    JournalContents run;
    run.state = JournalState::Readable;
    run.head = {kStart, 1, kMaxSamples, false, "0.1.0"};
    while (!lines.empty()) {
        const auto number = static_cast<std::int32_t>(run.readings.size()) + 1;
        if (lines[0] == '!')
            run.gaps.push_back({number, static_cast<GapKind>(number % 3), kStart, kStart + 1s * number});
        run.readings.push_back({kStart + 1s * number, CutTo(lines, '\n')});
    }
    return run;
}

/// Whether all of `some` stand in `all`, in their order.
bool AreAmong(const std::vector<JournalReading>& some, const std::vector<JournalReading>& all)
{
    auto next = all.begin();
    for (const JournalReading& reading : some) {
        next = std::find_if(next, all.end(), [&](const auto& one) { return Same(one, reading); });
        if (next == all.end())
            return false;
        ++next;
    }
    return true;
}

/// Damage at one place: nothing appears that was not measured, and what lies elsewhere is there.
void HoldDamage(const JournalContents& run, const std::string& damaged, std::size_t mostLost)
{
    const JournalContents rest = ReadJournal(damaged);
    HoldContents(rest);
    Hold(AreAmong(rest.readings, run.readings), "no reading that was never taken, none twice");
    if (rest.state == JournalState::Readable)
        Hold(rest.readings.size() + mostLost >= run.readings.size(), "what is not damaged is there");
}

} // namespace

/// The first line is two numbers: a place, and a length. What stands behind it is taken for a journal, and
/// for the lines of a run.
void TryJournal(std::string_view input)
{
    HoldContents(ReadJournal(input));

    const std::string numbers = CutTo(input, '\n');
    HoldContents(ReadJournal(input));
    unsigned place = 0;
    unsigned length = 0;
    const char* const end = numbers.data() + numbers.size();
    const auto read = std::from_chars(numbers.data(), end, place);
    if (read.ptr != end)
        std::from_chars(read.ptr + 1, end, length);

    const JournalContents run = RunOf(input);
    const std::string bytes = Written(run);
    const std::size_t at = place % bytes.size();
    const std::string piece = bytes.substr(at, 1 + length % 4096);
    HoldDamage(run, std::string(bytes).insert(at, piece), 1);
    HoldDamage(run, std::string(bytes).erase(at, piece.size()),
               2 + static_cast<std::size_t>(std::count(piece.begin(), piece.end(), '\n')));
}

} // namespace quorvane
