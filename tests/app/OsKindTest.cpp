#include "app/OsKind.h"

#include "tests/support/FixedSystemInfo.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::string_literals;

TEST(OsKind, FollowsTheVersion)
{
    struct Row {
        std::string_view what;
        BasicVersion version;
        int kind;
    };
    const Row rows[] = {
        {"3.51", {3, 51, 2, ""}, 3},
        {"4.0 with C", {4, 0, 1, "C"}, 4},
        {"4.0 with C, cut off at the NUL", {4, 0, 2, "C\0left over"s}, 4},
        {"4.0 with more than C", {4, 0, 2, "C "}, 2},
        {"4.0 with a NUL first", {4, 0, 1, "\0C"s}, 3},
        {"4.0 NT", {4, 0, 2, "Service Pack 6"}, 2},
        {"4.0 otherwise", {4, 0, 1, " B"}, 3},
        {"4.10", {4, 10, 1, ""}, 4},
        {"4.90", {4, 90, 1, ""}, 4},
        {"4.1", {4, 1, 1, "C"}, 1},
        {"6.0", {6, 0, 2, ""}, 7},
        {"6.3", {6, 3, 2, ""}, 7},
        {"10.0", {10, 0, 2, ""}, 8},
        {"2.11", {2, 11, 0, ""}, 8},
        {"7.0", {7, 0, 2, ""}, 8},
    };
    FixedSystemInfo system; // refuses the extended record, which only major version 5 asks for
    for (const Row& row : rows) {
        system.version = row.version;
        EXPECT_EQ(ClassifySystem(system), row.kind) << row.what;
    }
    system.version.reset();
    EXPECT_EQ(ClassifySystem(system), 1) << "refused";
}

TEST(OsKind, MajorVersion5NeedsTheExtendedRecord)
{
    struct Row {
        std::uint32_t minorVersion;
        std::uint8_t productType;
        int kind;
    };
    // 5.1 is always 0: the product type does not matter, and that is meant.
    const Row rows[] = {{0, 1, 1}, {0, 3, 1}, {1, 1, 0}, {1, 3, 0}, {1, 2, 0}, {2, 3, 8}, {3, 1, 8}};
    for (const Row& row : rows) {
        FixedSystemInfo system;
        system.version = BasicVersion{5, row.minorVersion, 2, "Service Pack 2"};
        EXPECT_EQ(ClassifySystem(system), 1) << "5." << row.minorVersion << " refused";
        system.versionWithProduct = ExtendedVersion{*system.version, row.productType};
        EXPECT_EQ(ClassifySystem(system), row.kind) << "5." << row.minorVersion << ' ' << row.productType;
    }
}

} // namespace
} // namespace quorvane
