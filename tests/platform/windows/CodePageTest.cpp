#include "platform/windows/WindowsCodePage.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace quorvane {
namespace {

TEST(WindowsCodePage, HoldsWhatTheCodePageHoldsAndNoLookAlikes)
{
    struct Row {
        std::string_view what;
        unsigned number;
        std::string utf8;
        std::string bytes;
        std::string back;
    };
    const Row rows[] = {
        {"Western", 1252, "M\u00e4r 5 \u20ac", "M\xE4r 5 \x80", "M\u00e4r 5 \u20ac"},
        {"Western without Japanese", 1252, "測定.csv", "??.csv", "??.csv"},
        {"Western without its look-alike", 1252, "\u0101", "?", "?"},
        {"Japanese", 932, "測定 ｱ", "\x91\xAA\x92\xE8 \xB1", "測定 ｱ"},
        {"Japanese with a backslash for a second byte", 932, "ソ表\\", "\x83\\\x95\\\\", "ソ表\\"},
        {"Japanese without its look-alike", 932, "\u00e9", "?", "?"},
        {"Unicode", CP_UTF8, "測\u00e9", "測\u00e9", "測\u00e9"},
    };
    for (const Row& row : rows) {
        const WindowsCodePage page(row.number);
        EXPECT_EQ(page.FromUtf8(row.utf8), row.bytes) << row.what;
        EXPECT_EQ(page.ToUtf8(row.bytes), row.back) << row.what;
    }
    EXPECT_EQ(WindowsCodePage(932).ToUtf8("A\x83"), "A\u30fb") << "cut in the middle of a character";
}

} // namespace
} // namespace quorvane
