#include "options/LanguageFile.h"

#include "files/AppFiles.h"
#include "tests/support/MemoryFileStore.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(LanguageFile, TheLastLineWithTheExactKeyCounts)
{
    constexpr std::int16_t kBefore = 7;
    struct Row {
        std::string_view what;
        std::string_view bytes;
        std::int16_t mode;
    };
    const Row rows[] = {
        {"as the program writes it", "Language = 1\r\n", 1},
        {"no blank before the number", "Language =1\r\n", 1},
        {"own language", "Language = 0\r\n", 0},
        {"many blanks", "Language =    1\r\n", 1},
        {"no line end", "Language = 1", 1},
        {"LF alone", "# choice\nLanguage = 1\nOther = 2\n", 1},
        {"CR alone", "x = 2\rLanguage = 1\r", 1},
        {"a later line overrides", "Language = 1\r\nLanguage = 0\r\n", 0},
        {"a mode nobody knows yet", "Language = 2\r\n", 2},
        {"negative", "Language = -1\r\n", -1},
        {"text behind the number", "Language = 1 (English)\r\n", 1},
        {"no number", "Language = English\r\n", 0},
        {"nothing", "Language =\r\n", 0},
        {"a second equals sign", "Language == 1\r\n", 0},
        {"a half goes to the even neighbour", "Language = 0.5\r\nLanguage = 1.5", 2},
        {"the largest", "Language = 32767", 32767},
        {"too large is no choice", "Language = 1\r\nLanguage = 32768\r\n", 1},
        {"far too large is none either", "Language = 1E999\r\n", kBefore},
        {"no blank before the sign", "Language= 1\r\n", kBefore},
        {"two blanks", "Language  = 1\r\n", kBefore},
        {"blank before the key", " Language = 1\r\n", kBefore},
        {"other letters", "language = 1\r\n", kBefore},
        {"key behind another sign", "x=Language = 1\r\n", kBefore},
        {"a comma does not end a line", "x,Language = 1\r\n", kBefore},
        {"empty", "", kBefore},
    };
    for (const Row& row : rows)
        EXPECT_EQ(LanguageModeIn(row.bytes, kBefore), row.mode) << row.what;
}

TEST(LanguageFile, AFileThatCannotBeReadIsNoFault)
{
    MemoryFileStore store;
    std::int16_t mode = 0;
    LoadLanguageMode(store, "app", mode);
    EXPECT_EQ(mode, 0);
    store.files[FileInFolder("app", "Language.dat")] = "Language = 1\r\n";
    store.readFault = FileFault{FileFaultKind::NoPermission, "not for you"};
    LoadLanguageMode(store, "app", mode);
    EXPECT_EQ(mode, 0);
    store.readFault.reset();
    LoadLanguageMode(store, "app", mode);
    EXPECT_EQ(mode, 1);
}

} // namespace
} // namespace quorvane
