#include "app/LanguageOffset.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(LanguageOffset, FollowsTheChoiceAndTheSystem)
{
    struct Row {
        std::string_view system;
        std::int16_t mode;
        std::int16_t offset;
    };
    constexpr std::int16_t kCurrent = 77; // no real offset, so that leaving it can be seen
    const Row rows[] = {
        {"Japanese", 0, 0},   {"Chinese", 0, 0},      {"English", 0, 0},      {"French", 0, 10000},
        {"", 0, 10000},       {"Japanese", 1, 10000}, {"Chinese", 1, 10000},  {"English", 1, 0},
        {"French", 1, 10000}, {"", 1, 10000},         {"Japanese", 2, 77},    {"English", 2, 77},
        {"French", -1, 77},   {"japanese", 0, 10000}, {"English ", 1, 10000},
    };
    for (const Row& row : rows)
        EXPECT_EQ(LanguageOffsetFor(row.mode, row.system, kCurrent), row.offset) << row.system << row.mode;
}

TEST(LanguageOffset, OnlyAJapaneseSystemHasTheJapaneseTable)
{
    EXPECT_EQ(TableLanguageFor("Japanese"), TableLanguage::Japanese);
    for (const std::string_view other : {"English", "Chinese", "japanese", ""})
        EXPECT_EQ(TableLanguageFor(other), TableLanguage::English) << other;
}

} // namespace
} // namespace quorvane
