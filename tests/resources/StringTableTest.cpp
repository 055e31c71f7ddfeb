#include "resources/StringTable.h"

#include "resources/OwnTexts.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace quorvane {
namespace {

const StringTable kEnglish(TableLanguage::English);
const StringTable kJapanese(TableLanguage::Japanese);

std::vector<int> KnownNumbers()
{
    std::vector<int> numbers;
    for (int number = -1; number < 10000; ++number)
        if (!kEnglish.Text(number, 0).empty())
            numbers.push_back(number);
    return numbers;
}

/// Whether `text` is UTF-8 without overlong forms and surrogates.
bool IsUtf8(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
        const unsigned first = byte(at);
        const std::size_t length = first < 0x80       ? 1
                                   : first >> 5 == 6  ? 2
                                   : first >> 4 == 14 ? 3
                                   : first >> 3 == 30 ? 4
                                                      : 0;
        if (length == 0 || at + length > text.size())
            return false;
        unsigned code = length == 1 ? first : first & (0xFFU >> (length + 1));
        for (std::size_t i = 1; i < length; ++i) {
            if (byte(at + i) >> 6 != 2)
                return false;
            code = code << 6 | (byte(at + i) & 0x3F);
        }
        constexpr unsigned kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
        if (code < kLeast[length] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
            return false;
        at += length;
    }
    return true;
}

TEST(StringTable, EnglishTextsAreExact)
{
    struct Row {
        int id;
        std::string_view text;
    };
    const Row rows[] = {
        {101, "Quorvane Software"},
        {161, "Instrument Setting"},
        {217, " is not used."},
        {218, "RS232C ERROR."},
        {219, "All Files"},
        {220, "It is over the setting range. Redo setup."},
        {221, "The setup is incorrect. Redo setup."},
        {223, "Measure Start"},
        {225, "Measure End"},
        {226, "Zoom On"},
        {228, "Data is not saved. Do you save?"},
        {234, "Number of Data is zero. Redo setup."},
        {235, "Data File can not create or save."},
        {236, "Data File can not load."},
        {238, "Communication Error"},
        {264, "There is a problem in the date data. Graphical representation is not possible."},
        {265, "There is a problem in the time data. Graphical representation is not possible."},
        {280, "TLV-TWA:"},
        {281, "TLV-STEL:"},
        {282, "TLV-C:"},
        {294, "Alarm value (C) [mg/m3]"},
        {295, "Alarm value (STEL) [mg/m3]"},
        {296, "Alarm value (TWA) [mg/m3]"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(kEnglish.Text(row.id, 0), row.text);
}

TEST(StringTable, EveryTextIsInEnglishAgainTenThousandAboveWhateverTheLanguage)
{
    EXPECT_GE(KnownNumbers().size(), 42U);
    for (const int id : KnownNumbers()) {
        EXPECT_TRUE((id >= 101 && id <= 300) || id >= 1001) << id;
        EXPECT_EQ(kJapanese.Text(id, 10000), kEnglish.Text(id, 0)) << id;
        EXPECT_EQ(kEnglish.Text(id, 10000), kEnglish.Text(id, 0)) << id;
        EXPECT_EQ(kJapanese.Text(id + 10000, 0), kEnglish.Text(id, 0)) << id;
        EXPECT_EQ(kEnglish.Text(id + 10000, 10000), "") << id;
    }
}

TEST(StringTable, OtherNumbersHaveNoText)
{
    for (const int number : {-10000, -1, 0, 1, 100, 102, 300, 301, 1000, 1009, 10000, 10100, 2147483647})
        EXPECT_EQ(kJapanese.Text(number, 0), "") << number;
}

TEST(StringTable, JapaneseTextsAreTranslatedAndComplete)
{
    const std::set<int> sameInBoth = {101, 280, 281, 282}; // the product's name; symbols of the limits
    for (const int id : KnownNumbers()) {
        const std::string english = kEnglish.Text(id, 0);
        const std::string japanese = kJapanese.Text(id, 0);
        EXPECT_TRUE(IsUtf8(english)) << id;
        EXPECT_TRUE(IsUtf8(japanese)) << id;
        EXPECT_FALSE(japanese.empty()) << id;
        EXPECT_EQ(english == japanese, sameInBoth.contains(id)) << id;
        EXPECT_TRUE(std::ranges::all_of(english, [](char c) { return c >= ' ' && c <= '~'; })) << id;
        EXPECT_EQ(english.find("%1") == std::string::npos, japanese.find("%1") == std::string::npos) << id;
    }
    EXPECT_EQ(kJapanese.Text(223, 0), "\u8a08\u6e2c\u958b\u59cb");
}

TEST(StringTable, EveryFaultHasASentenceOfItsOwn)
{
    std::set<std::string> sentences;
    for (const auto kind : {PortFaultKind::Absent, PortFaultKind::Busy, PortFaultKind::NoPermission,
                            PortFaultKind::NotALine, PortFaultKind::Unsupported, PortFaultKind::Other})
        sentences.insert(kEnglish.Text(ReasonText(kind), 0));
    for (const auto kind : {FileFaultKind::NotFound, FileFaultKind::NoPermission, FileFaultKind::NoSpace,
                            FileFaultKind::InUse, FileFaultKind::NotAFile, FileFaultKind::Other})
        sentences.insert(kEnglish.Text(ReasonText(kind), 0));
    EXPECT_EQ(sentences.size(), 12U);
    for (const std::string& sentence : sentences)
        EXPECT_TRUE(sentence.ends_with('.')) << sentence;
    EXPECT_THAT(kEnglish.Text(ReasonText(PortFaultKind::Busy), 0), testing::HasSubstr("Another program"));
    EXPECT_THAT(kEnglish.Text(ReasonText(PortFaultKind::NoPermission), 0), testing::HasSubstr("dialout"));
    EXPECT_THAT(kEnglish.Text(ReasonText(FileFaultKind::NoSpace), 0), testing::HasSubstr("space"));
}

TEST(StringTable, ValueTakesThePlaceOfItsMark)
{
    EXPECT_EQ(FilledIn(kEnglish.Text(kGivenUpText, 0), "30"),
              "No data from the instrument for 30 s; the run was given up");
    EXPECT_EQ(FilledIn("%1", "%1"), "%1");
    EXPECT_EQ(FilledIn("no mark", "30"), "no mark");
}

} // namespace
} // namespace quorvane
