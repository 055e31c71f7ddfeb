#pragma once

#include "app/LocalClock.h"
#include "measure/RunGap.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// What the first record of a journal tells of its run.
struct JournalHead {
    LocalMoment start{};           ///< by the computer's clock
    std::int32_t sampling = 0;     ///< seconds from one reading to the next, 1 to `kMaxSamplingSeconds`
    std::int32_t totalSamples = 0; ///< planned, 1 to `kMaxSamples`
    bool simulated = false;        ///< the readings are made up
    std::string version;           ///< of the program that wrote it, "2.0.2"
};

/// Writes the records of one journal. Each is a line that ends in the mark of its run (but the head's) and in
/// the CRC-32 of all characters before it, both as eight hexadecimal digits.
class JournalPen {
public:
    explicit JournalPen(const JournalHead& head);

    /// The first record.
    [[nodiscard]] const std::string& Head() const { return head_; }
    /// @param number  of the reading, from 1
    /// @param line    as it was received, whatever bytes it has
    [[nodiscard]] std::string Reading(std::int32_t number, LocalMoment moment, std::string_view line) const;
    /// @param number  of the gap in its run, from 1
    [[nodiscard]] std::string Gap(std::int32_t number, const RunGap& gap) const;

private:
    [[nodiscard]] std::string Marked(std::string record) const;

    std::string head_;
    std::string mark_; ///< the head's checksum
};

enum class JournalState {
    Readable,
    Empty,   ///< it ends before its first record does: the program ended when it had just begun the journal
    Foreign, ///< its first record is not that of a journal, or is damaged
    Newer,   ///< a newer version of the program wrote it, in a form that this one does not know
};

struct JournalReading {
    LocalMoment moment{};
    std::string line;
};

/// What can be had from a journal.
struct JournalContents {
    JournalState state = JournalState::Empty;
    JournalHead head;                     ///< when `Readable`, as is what follows
    std::vector<JournalReading> readings; ///< in their order, at most `kMaxSamples`
    std::vector<RunGap> gaps;             ///< `before` counts the readings that are here
    /// Records that are left out because they are damaged, stand a second time or at a wrong place, or
    /// readings that are missing, whichever are more.
    std::int32_t damaged = 0;
};

/// Reads a journal, whatever bytes it has, in a time that grows as they do. A last record that is not
/// finished was being written when the program ended; it is left out without being counted.
[[nodiscard]] JournalContents ReadJournal(std::string_view bytes);

/// CRC-32 of the polynomial 0x04C11DB7, reflected, begun with and inverted by ones: "123456789" gives
/// 0xCBF43926.
[[nodiscard]] std::uint32_t Checksum(std::string_view bytes);

/// Date and time as the journal writes them: "2024-05-01 09:30:00".
[[nodiscard]] std::string JournalMomentText(LocalMoment moment);

} // namespace quorvane
