#include "files/DataFile.h"

#include "tests/files/Golden.h"
#include "tests/support/FakeCodePage.h"
#include "tests/support/MemoryFileStore.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

struct Reading {
    std::string time;
    double count, conc, average, shortAverage, integratedCount, integratedConc;
};

MeasurementArrays ArraysOf(const std::vector<Reading>& readings)
{
    MeasurementArrays arrays;
    arrays.Create(static_cast<std::int32_t>(readings.size()));
    for (std::size_t i = 1; i <= readings.size(); ++i) {
        const Reading& reading = readings[i - 1];
        arrays.MeasureTime[i] = reading.time;
        arrays.CountValue[i] = reading.count;
        arrays.ConcValue[i] = reading.conc;
        arrays.DerivedValueA[i] = reading.average;
        arrays.DerivedValueB[i] = reading.shortAverage;
        arrays.IntegratedCount[i] = reading.integratedCount;
        arrays.IntegratedConc[i] = reading.integratedConc;
    }
    return arrays;
}

const MeasurementArrays kAwkward = ArraysOf({
    {"09:30:01", 12, 1.25, 1.25, 0.00015, 12, 1.25},
    {"09:30:02", 0, 0, 0.625, 12.345678, 12, 3},
    {"23:59:59", 65500.5, 0.1 + 0.2, 1.0 / 3, 0.00004, 1e15, 0.0005},
    {"", 0.000001, 1234567.5, 9.99995, 1e7, 999999999999999, 1234567.0625},
    {"00:00:00", 5, 0.063, 0.05, 0.00005, 17, 2.0 / 3},
});

const DataFormat kFormat = {.decimalSign = ".", .version = {.major = 2, .minor = 0, .revision = 2}};

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        EXPECT_NE(end, std::string::npos) << "a line without an end";
        lines.push_back(text.substr(at, end - at));
        at = end == std::string::npos ? text.size() : end + 2;
    }
    return lines;
}

std::vector<std::string> Lines(const MeasurementArrays& arrays, const std::string& factor, std::int32_t count,
                               std::int16_t layout, const DataFormat& format = kFormat)
{
    return LinesOf(DataFileText(arrays, "2024/02/29", factor, count, layout, format));
}

TEST(DataFile, FullLayoutIsWrittenByteForByte)
{
    EXPECT_EQ(DataFileText(kAwkward, "2024/02/29", "1.3", 5, kFullLayout, kFormat),
              GoldenBytes("data-full.csv"));
}

TEST(DataFile, ShortLayoutIsWrittenByteForByte)
{
    EXPECT_EQ(DataFileText(kAwkward, "2024/02/29", "1.3", 5, kShortLayout, kFormat),
              GoldenBytes("data-short.csv"));
}

TEST(DataFile, CountSaysHowManyReadingsAreWritten)
{
    EXPECT_EQ(Lines(kAwkward, "1.3", 0, kFullLayout).size(), 5U);
    EXPECT_EQ(Lines(kAwkward, "1.3", 0, kFullLayout)[2], "Data,0");
    EXPECT_EQ(Lines(kAwkward, "1.3", 0, kShortLayout).size(), 5U);
    const auto two = Lines(kAwkward, "1.3", 2, kFullLayout);
    ASSERT_EQ(two.size(), 7U);
    EXPECT_EQ(two[2], "Data,2");
    EXPECT_EQ(two[6], "09:30:02,0,0,0.625,12.3457,12,3.0");
}

TEST(DataFile, OtherLayoutsHaveFourLines)
{
    for (const auto layout : std::initializer_list<std::int16_t>{2, -1}) {
        const auto lines = Lines(kAwkward, "1.3", 5, layout);
        ASSERT_EQ(lines.size(), 4U) << layout;
        EXPECT_EQ(lines[2], "Data,5");
        EXPECT_EQ(lines[3], "K Factor,0.0013");
    }
}

TEST(DataFile, FactorIsInThousandths)
{
    struct Row {
        std::string_view what;
        std::string factor;
        std::string_view line;
    };
    const Row rows[] = {
        {"as the instrument sends it", "1.2", "K Factor,0.0012"},
        {"whole", "5", "K Factor,0.005"},
        {"small", "0.001", "K Factor,1E-06"},
        {"none", "", "K Factor,0"},
        {"no number", "x", "K Factor,0"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Lines(kAwkward, row.factor, 0, kFullLayout)[3], row.line) << row.what;
}

TEST(DataFile, NumbersHaveTheUsersDecimalSign)
{
    const DataFormat format = {.decimalSign = ",", .version = {.major = 12, .minor = 3, .revision = 45}};
    // The separator is a comma all the same, and the instrument's factor has a point: that is the format.
    const auto lines = Lines(kAwkward, "1.3", 1, kFullLayout, format);
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_EQ(lines[0], "Program Ver.,Quorvane_Ver.123450");
    EXPECT_EQ(lines[3], "K Factor,0,0013");
    EXPECT_EQ(lines[5], "09:30:01,12,1,25,1,25,0,0002,12,1,25");
}

class DataFileOnDisk : public testing::Test {
protected:
    std::optional<FileFault> Write()
    {
        return WriteDataFile("/data/a.csv", "29. M\u00e4r 2024", "1.3", 2, kShortLayout,
                             {store, codePage, arrays, kFormat});
    }

    MeasurementArrays arrays = ArraysOf({{"\u00e9", 1, 2, 3, 4, 5, 6}, {"\u7c89", 1, 2, 3, 4, 5, 6}});
    MemoryFileStore store;
    FakeCodePage codePage;
};

TEST_F(DataFileOnDisk, FileIsInTheUsersCodePage)
{
    EXPECT_FALSE(Write());
    const auto lines = LinesOf(store.files["/data/a.csv"]);
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_EQ(lines[1], "Date,29. M\xe4r 2024");
    EXPECT_EQ(lines[5], "\xe9,1,2,5,6.0");
    EXPECT_EQ(lines[6], "?,1,2,5,6.0");
}

TEST_F(DataFileOnDisk, FailureIsHandedOn)
{
    store.files["/data/a.csv"] = "old";
    store.replaceFault = FileFault{FileFaultKind::NoSpace, "disk full"};
    const auto fault = Write();
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->kind, FileFaultKind::NoSpace);
    EXPECT_EQ(fault->systemReason, "disk full");
    EXPECT_EQ(store.files["/data/a.csv"], "old");
}

} // namespace
} // namespace quorvane
