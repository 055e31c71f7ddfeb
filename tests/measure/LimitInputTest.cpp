#include "measure/LimitInput.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(LimitInputTest, StoresWhileTypingFromZeroUpAndIsValidFromTheLowestLimitUp)
{
    struct Row {
        std::string_view what, text, decimalSign;
        double limit; // before: 5
        bool taken, valid;
    };
    const Row rows[] = {
        {"in range", "0.05", ".", 0.05, true, true},
        {"the upper end", "10", ".", 10, true, true},
        {"above it", "10.001", ".", 5, false, true},
        {"0 stands on the way to 0.05, and is meant to pass here", "0", ".", 0, true, false},
        {"below the lowest limit, likewise", "0.0009", ".", 0.0009, true, false},
        {"the lowest limit", "0.001", ".", 0.001, true, true},
        {"negative", "-1", ".", 5, false, true},
        {"empty changes nothing", "", ".", 5, true, true},
        {"no number counts as 0", "abc", ".", 0, true, false},
        {"what stands behind the number is left out", "1.5x", ".", 1.5, true, true},
        {"decimal comma", "0,25", ",", 0.25, true, true},
        {"a point where the comma is usual", "0.25", ",", 0.25, true, true},
        {"a comma where the point is usual ends the number", "0,25", ".", 0, true, false},
        {"beyond a double", "1e999", ".", 0, true, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        double limit = 5;
        LimitInput input(limit);
        EXPECT_EQ(input.TextChanged(row.text, row.decimalSign), row.taken);
        EXPECT_EQ(limit, row.limit);
        EXPECT_EQ(input.IsValid(), row.valid);
    }
}

} // namespace
} // namespace quorvane
