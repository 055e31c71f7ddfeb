#include "files/DataFile.h"

#include "tests/files/Golden.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

struct Reading {
    std::string time;
    double count, conc, average, shortAverage, integratedCount, integratedConc;
};

const Reading kAwkward[] = {
    {"09:30:01", 12, 1.25, 1.25, 0.00015, 12, 1.25},
    {"09:30:02", 0, 0, 0.625, 12.345678, 12, 3},
    {"23:59:59", 65500.5, 0.1 + 0.2, 1.0 / 3, 0.00004, 1e15, 0.0005},
    {"", 0.000001, 1234567.5, 9.99995, 1e7, 999999999999999, 1234567.0625},
    {"00:00:00", 5, 0.063, 0.05, 0.00005, 17, 2.0 / 3},
};

/// A file of the awkward readings.
std::string Text(const std::string& factor, std::int16_t layout, ProgramVersion version = {2, 0, 2})
{
    MeasurementArrays arrays;
    arrays.Create(std::size(kAwkward));
    std::size_t i = 0;
    for (const Reading& reading : kAwkward) {
        arrays.MeasureTime[++i] = reading.time;
        arrays.CountValue[i] = reading.count;
        arrays.ConcValue[i] = reading.conc;
        arrays.DerivedValueA[i] = reading.average;
        arrays.DerivedValueB[i] = reading.shortAverage;
        arrays.IntegratedCount[i] = reading.integratedCount;
        arrays.IntegratedConc[i] = reading.integratedConc;
    }
    return DataFileText(arrays, "2024/02/29", factor, std::size(kAwkward), layout,
                        {.decimalSign = ".", .version = version});
}

TEST(DataFile, BothLayoutsAreWrittenByteForByte)
{
    EXPECT_EQ(Text("1.3", kFullLayout), GoldenBytes("data-full.csv"));
    EXPECT_EQ(Text("1.3", kShortLayout), GoldenBytes("data-short.csv"));
}

TEST(DataFile, OtherLayoutsHaveFourLines)
{
    for (const auto layout : std::initializer_list<std::int16_t>{2, -1})
        EXPECT_EQ(Text("1.3", layout, {12, 3, 45}), "Program Ver.,Quorvane_Ver.123450\r\nDate,2024/02/29\r\n"
                                                    "Data,5\r\nK Factor,0.0013\r\n");
}

TEST(DataFile, FactorIsInThousandths)
{
    struct Row {
        std::string_view what;
        std::string factor;
        std::string line;
    };
    const Row rows[] = {
        {"whole", "5", "K Factor,0.005\r\n"},
        {"small", "0.001", "K Factor,1E-06\r\n"},
        {"none", "", "K Factor,0\r\n"},
        {"no number", "x", "K Factor,0\r\n"},
    };
    for (const Row& row : rows)
        EXPECT_THAT(Text(row.factor, kFullLayout), testing::HasSubstr("\n" + row.line)) << row.what;
}

} // namespace
} // namespace quorvane
