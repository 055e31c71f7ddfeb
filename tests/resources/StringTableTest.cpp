#include "resources/StringTable.h"

#include "files/FileFaultText.h"
#include "resources/OwnTexts.h"
#include "serial/PortFaultText.h"

#include <algorithm>
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

int CountOf(std::string_view mark, std::string_view text)
{
    int count = 0;
    for (std::size_t at = 0; (at = text.find(mark, at)) != std::string_view::npos; at += mark.size())
        ++count;
    return count;
}

/// The letter that chooses a menu or a button from the keyboard, in capitals; 0 without one.
char Mnemonic(std::string_view text)
{
    const std::size_t mark = text.find('&');
    return mark == std::string_view::npos ? '\0' : static_cast<char>(text[mark + 1] & ~0x20);
}

TEST(StringTable, EveryTextIsInEnglishAgainTenThousandAboveWhateverTheLanguage)
{
    EXPECT_GE(KnownNumbers().size(), 42U);
    for (const int id : KnownNumbers()) {
        EXPECT_EQ(kJapanese.Text(id, 10000), kEnglish.Text(id, 0)) << id;
        EXPECT_EQ(kEnglish.Text(id, 10000), kEnglish.Text(id, 0)) << id;
        EXPECT_EQ(kJapanese.Text(id + 10000, 0), kEnglish.Text(id, 0)) << id;
        EXPECT_EQ(kEnglish.Text(id + 10000, 10000), "") << id;
    }
    for (const int number : {-10000, -1, 0, 100, 102, 301, 1000, 1009, 10000, 10100, 2147483647})
        EXPECT_EQ(kJapanese.Text(number, 0), "") << number;
    EXPECT_EQ(kEnglish.Text(217, 0), " is not used."); // stands behind the port's name, hence the blank
}

TEST(StringTable, JapaneseTextsAreTranslatedAndComplete)
{
    const std::set<int> namesAndSymbols = {
        101,
        128,
        166,
        167,
        168,
        174,
        249,
        273,
        280,
        281,
        282,
        292,
        kTwaColumnText,
        kStelColumnText,
        kConcUnitText,
        kCountUnitText,
        kChannel1Text,
        kXonXoffText,
        kRtsCtsText,
        kXonRtsText,
        kKilobytesText,
        kGuideSmallerText,
        kGuideLargerText,
    };
    for (const int id : KnownNumbers()) {
        const std::string english = kEnglish.Text(id, 0);
        const std::string japanese = kJapanese.Text(id, 0);
        EXPECT_FALSE(japanese.empty()) << id;
        EXPECT_EQ(english == japanese, namesAndSymbols.contains(id)) << id;
        EXPECT_TRUE(std::ranges::all_of(english, [](char c) { return c >= ' ' && c <= '~'; })) << id;
        EXPECT_EQ(CountOf("%1", english), CountOf("%1", japanese)) << id;
        EXPECT_EQ(Mnemonic(english), Mnemonic(japanese)) << id;
    }
    EXPECT_EQ(kJapanese.Text(223, 0), "測定開始");
}

TEST(StringTable, EveryFaultHasASentenceOfItsOwn)
{
    std::set<std::string> sentences;
    for (int kind = 0; kind < 6; ++kind) { // as many as there are of either
        sentences.insert(kEnglish.Text(ReasonText(static_cast<PortFaultKind>(kind)), 0));
        sentences.insert(kEnglish.Text(ReasonText(static_cast<FileFaultKind>(kind)), 0));
    }
    EXPECT_EQ(sentences.size(), 12U);
    EXPECT_FALSE(sentences.contains(""));
}

TEST(StringTable, ValueTakesThePlaceOfItsMark)
{
    EXPECT_EQ(FilledIn("after %1 s", "30"), "after 30 s");
    EXPECT_EQ(FilledIn("%1", "%1"), "%1");
}

} // namespace
} // namespace quorvane
