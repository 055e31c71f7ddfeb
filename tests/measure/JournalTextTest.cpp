#include "measure/JournalText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

constexpr LocalMoment kStart = std::chrono::local_days{2024y / 5 / 1} + 23h + 58min + 59s;
const JournalPen kPen({kStart, 60, 65500, false, "2.0.2"});

std::string Line(int number)
{
    return "line " + std::to_string(number) + "\r\n";
}

std::string Reading(int number, const JournalPen& pen = kPen)
{
    return pen.Reading(number, kStart + std::chrono::seconds(number), Line(number));
}

std::string Gap(int number, int before)
{
    return kPen.Gap(number, {before, GapKind::Standstill, kStart, kStart + 1h});
}

std::string Sealed(const std::string& record)
{
    std::string digits(8, '0');
    std::uint32_t sum = Checksum(record);
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, sum >>= 4U)
        *digit = "0123456789ABCDEF"[sum & 15U];
    return record + digits + "\n";
}

std::vector<std::string> Lines(const JournalContents& contents)
{
    std::vector<std::string> lines;
    for (const JournalReading& reading : contents.readings)
        lines.push_back(reading.line);
    return lines;
}

TEST(JournalText, IsReadableByPeopleAndKeepsEveryByte)
{
    // Checksums by another implementation.
    const std::string line("0:00:01;-1;\"\\\0\xE9\x7F\r\n", 18);
    const std::string journal = kPen.Head() + kPen.Reading(1, kStart + 62s, line) +
                                kPen.Gap(1, {2, GapKind::PortLost, kStart + 63s, kStart + 3661s});
    EXPECT_EQ(journal, "QuorvaneJournal 1 2024-05-01 23:58:59 60 65500 instrument 2.0.2 50243345\n"
                       R"(R 1 2024-05-02 00:00:01 "0:00:01;-1;\"\\\x00\xE9\x7F\r\n" 50243345 C3BB5957)"
                       "\n"
                       "G 1 2 port-lost 2024-05-02 00:00:02 2024-05-02 01:00:00 50243345 FE871461\n");
    EXPECT_EQ(Checksum("123456789"), 0xCBF43926U);

    const JournalContents contents = ReadJournal(journal);
    EXPECT_EQ(contents.state, JournalState::Readable);
    EXPECT_EQ(contents.head.start, kStart);
    EXPECT_EQ(contents.head.sampling, 60);
    EXPECT_EQ(contents.head.totalSamples, 65500);
    EXPECT_EQ(contents.head.version, "2.0.2");
    EXPECT_FALSE(contents.head.simulated);
    EXPECT_TRUE(ReadJournal(JournalPen({kStart, 60, 65500, true, "2.0.2"}).Head()).head.simulated);
    EXPECT_THAT(Lines(contents), ElementsAre(line));
    EXPECT_EQ(contents.readings.at(0).moment, kStart + 62s);
    EXPECT_THAT(contents.gaps, ElementsAre(RunGap{2, GapKind::PortLost, kStart + 63s, kStart + 3661s}));
    EXPECT_EQ(contents.damaged, 0);
}

TEST(JournalText, LeavesOutWhatIsDamagedAndKeepsTheRest)
{
    const JournalPen other({kStart + 1s, 60, 65500, false, "2.0.2"});
    std::string flipped = Reading(2);
    flipped[30] ^= 1;
    std::string joined = Reading(2);
    joined.back() = ' ';
    const std::string mark = kPen.Head().substr(kPen.Head().size() - 9, 8);
    struct Row {
        std::string what;
        std::string records;
        std::vector<int> kept;
        int damaged;
        std::vector<int> gapsBefore;
    };
    const Row rows[] = {
        {"whole", Reading(1) + Reading(2) + Reading(3), {1, 2, 3}, 0, {}},
        {"a flipped byte", Reading(1) + flipped + Reading(3), {1, 3}, 1, {}},
        {"a flipped line end", Reading(1) + joined + Reading(3) + Reading(4), {1, 4}, 2, {}},
        {"one twice", Reading(1) + Reading(2) + Reading(2) + Reading(3), {1, 2, 3}, 1, {}},
        {"two exchanged", Reading(1) + Reading(3) + Reading(2), {1, 3}, 1, {}},
        {"missing ones", Reading(1) + Reading(4), {1, 4}, 2, {}},
        {"of another run", Reading(1) + Reading(2, other) + Reading(2), {1, 2}, 1, {}},
        {"a head in the middle", Reading(1) + kPen.Head() + Reading(2), {1, 2}, 1, {}},
        {"empty lines", "\n\n" + Reading(1), {1}, 2, {}},
        {"a number beyond all runs", Reading(65501) + Reading(1), {1}, 1, {}},
        {"the highest number", Reading(65500) + Reading(65501), {65500}, 65499, {}},
        {"an unknown escape", Sealed("R 1 2024-05-02 00:00:01 \"\\t\" " + mark + " "), {}, 1, {}},
        {"half an escape", Sealed("R 1 2024-05-02 00:00:01 \"\\x4\" " + mark + " "), {}, 1, {}},
        {"text behind", Sealed("R 1 2024-05-02 00:00:01 \"\" " + mark + "  "), {}, 1, {}},
        {"no such day", Sealed("R 1 2024-02-30 00:00:01 \"\" " + mark + " "), {}, 1, {}},
        {"gaps", Gap(1, 1) + Reading(1) + Gap(2, 2) + Reading(2) + Gap(3, 3), {1, 2}, 0, {1, 2, 3}},
        {"gaps beside a missing reading",
         Reading(1) + Gap(1, 2) + flipped + Gap(2, 3) + Reading(3),
         {1, 3},
         1,
         {2, 2}},
        {"a gap twice, and one too late",
         Reading(1) + Gap(1, 2) + Gap(1, 2) + Reading(2) + Gap(2, 2),
         {1, 2},
         2,
         {2}},
        {"the highest number of a gap",
         Sealed("G 2147483647 1 clock-set 2024-05-02 00:00:02 2024-05-02 01:00:00 " + mark + " ") + Gap(2, 1),
         {},
         1,
         {1}},
    };
    for (const Row& row : rows) {
        const JournalContents contents = ReadJournal(kPen.Head() + row.records);
        std::vector<std::string> kept;
        for (const int number : row.kept)
            kept.push_back(Line(number));
        std::vector<int> gapsBefore;
        for (const RunGap& gap : contents.gaps)
            gapsBefore.push_back(gap.before);
        EXPECT_EQ(Lines(contents), kept) << row.what;
        EXPECT_EQ(contents.damaged, row.damaged) << row.what;
        EXPECT_EQ(gapsBefore, row.gapsBefore) << row.what;
    }
}

TEST(JournalText, OneCutAnywhereGivesTheRecordsBeforeTheCut)
{
    const std::string journal = kPen.Head() + Reading(1) + Gap(1, 2) + Reading(2);
    for (std::size_t length = 0; length <= journal.size(); ++length) {
        const std::string cut = journal.substr(0, length);
        const auto whole = std::ranges::count(cut, '\n');
        for (const std::string& tail : {std::string(), std::string(cut.ends_with('\n') ? 500 : 0, '\0')}) {
            const JournalContents contents = ReadJournal(cut + tail);
            EXPECT_EQ(contents.state, whole == 0 ? JournalState::Empty : JournalState::Readable) << length;
            EXPECT_EQ(contents.readings.size(), whole < 2 ? 0U : whole < 4 ? 1U : 2U) << length;
            EXPECT_EQ(contents.damaged, 0) << length;
        }
    }
}

TEST(JournalText, NoFlippedBitBringsAWrongReading)
{
    const std::string journal = kPen.Head() + Reading(1) + Reading(2);
    for (std::size_t bit = 0; bit < journal.size() * 8; ++bit) {
        std::string flipped = journal;
        flipped[bit / 8] ^= static_cast<char>(1U << bit % 8);
        const JournalContents contents = ReadJournal(flipped);
        for (const std::string& line : Lines(contents))
            EXPECT_TRUE(line == Line(1) || line == Line(2)) << bit;
        EXPECT_LT(contents.readings.size(), 2U) << bit;
    }
}

TEST(JournalText, TellsWhatItCannotRead)
{
    const std::string newer = Sealed("QuorvaneJournal 2 and all that is new ");
    const std::pair<std::string, JournalState> rows[] = {
        {"", JournalState::Empty},
        {"a,b,c\n", JournalState::Foreign},
        {newer + Reading(1), JournalState::Newer},
        {Sealed("QuorvaneJournal 1 2024-05-01 23:58:59 0 65500 instrument 2.0.2 "), JournalState::Foreign},
        {Sealed("QuorvaneJournal 1 2024-05-01 23:58:59 901 65500 instrument 2.0.2 "), JournalState::Foreign},
        {Sealed("QuorvaneJournal 1 2024-05-01 23:58:59 60 65501 instrument 2.0.2 "), JournalState::Foreign},
        {Sealed("QuorvaneJournal 1 2024-05-01 23:58:59 60 10 made-up 2.0.2 "), JournalState::Foreign},
        {Sealed("QuorvaneJournal 0 2024-05-01 23:58:59 60 10 instrument 2.0.2 "), JournalState::Foreign},
    };
    for (const auto& [bytes, state] : rows)
        EXPECT_EQ(ReadJournal(bytes).state, state) << bytes;
}

} // namespace
} // namespace quorvane
