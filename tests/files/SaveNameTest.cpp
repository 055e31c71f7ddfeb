#include "files/SaveName.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SaveName, FiltersArePairsEachFollowedByABar)
{
    const auto filters = FileFilters("すべて (*.*)|*.*|CSV FILE (*.csv)|*.CSV|Both|*.a;;*.b;*.*|");
    ASSERT_EQ(filters.size(), 3U);
    EXPECT_EQ(filters[0].description, "すべて (*.*)");
    EXPECT_THAT(filters[0].patterns, ElementsAre("*")) << "also files without a dot";
    EXPECT_EQ(filters[1].description, "CSV FILE (*.csv)");
    EXPECT_THAT(filters[1].patterns, ElementsAre("*.CSV"));
    EXPECT_THAT(filters[2].patterns, ElementsAre("*.a", "*.b", "*"));

    for (const char* none : {"", "a", "a|", "a|*.a"}) // not even one pair
        EXPECT_THAT(FileFilters(none), IsEmpty()) << none;
    EXPECT_EQ(FileFilters("a|*.a|b|*.b").size(), 1U);
}

TEST(SaveName, OnlyANameWithoutExtensionGetsOne)
{
    struct Row {
        const char* what;
        const char* path;
        const char* expected;
    };
    const Row rows[] = {
        {"bare name", "/data/run", "/data/run.csv"},
        {"its own extension", "/data/run.txt", "/data/run.txt"},
        {"the same in capitals", "/data/run.CSV", "/data/run.CSV"},
        {"dots in the folder only", "/data.d/v1.2/run", "/data.d/v1.2/run.csv"},
        {"no folder", "run", "run.csv"},
        {"a dot at the end", "/data/run.", "/data/run.csv"},
        {"an extension and a dot", "/data/run.txt.", "/data/run.txt.csv"},
        {"hidden", "/data/.run", "/data/.run.csv"},
        {"hidden with an extension", "/data/.run.txt", "/data/.run.txt"},
        {"Japanese", "/データ/測定", "/データ/測定.csv"},
        {"a number is an extension like any other", "/data/dust 1.5", "/data/dust 1.5"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(WithExtension(row.path, "csv"), row.expected) << row.what;
        EXPECT_EQ(WithExtension(row.path, ""), row.path) << row.what;
    }
}

} // namespace
} // namespace quorvane
