#include "files/DataFileReader.h"

#include "files/DataFile.h"
#include "tests/files/Golden.h"
#include "tests/support/FixedLocale.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using namespace std::string_view_literals;
using testing::ElementsAre;

const std::string kTop = "Program Ver.,Quorvane_Ver.2020\r\nDate,2024/03/05\r\n";
const std::string kFull = std::string(kFullHeading) + "\r\n";
const std::string kShort = std::string(kShortHeading) + "\r\n";
const std::string kPoint = kTop + "Data,2\r\nK Factor,0.0012\r\n" + kFull +
                           "23:59:59,12,0.016,0.016,0.017,12,0.016\r\n"
                           "00:00:00,48,1,0.508,0.509,60,1.016\r\n";
const std::string kComma = kTop + "Data,2\r\nK Factor,0,0012\r\n" + kFull +
                           "23:59:59,12,0,016,0,016,0,017,12,0,016\r\n"
                           "00:00:00,48,1,0,508,0,509,60,1,016\r\n";
const std::string kShortComma = kTop + "Data,2\r\nK Factor,0\r\n" + kShort +
                                "23:59:59,12,0,016,12,0,016\r\n"
                                "00:00:00,48,1,60,1,016\r\n";

std::string With(std::string text, std::string_view what, std::string_view instead)
{
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return at == std::string::npos ? text : text.replace(at, what.size(), instead);
}

/// What the text holds; nothing read when it is refused.
DataFileContents Contents(std::string_view text)
{
    DataFileContents contents;
    EXPECT_FALSE(ReadDataFile(text, contents)) << text.substr(0, 600);
    return contents;
}

/// `contents` as a file again.
std::string Written(const DataFileContents& contents, const std::string& decimalSign)
{
    const auto& arrays = contents.arrays;
    return DataFileText(arrays, arrays.FileDate, arrays.ExtraField.size() > 1 ? arrays.ExtraField.at(1) : "",
                        contents.count, contents.layout, {.decimalSign = decimalSign, .version = {2, 0, 2}});
}

TEST(DataFileReader, ReadsEveryColumnOfBothLayouts)
{
    const DataFileContents full = Contents(GoldenBytes("data-full.csv"));
    const MeasurementArrays& arrays = full.arrays;
    EXPECT_EQ(full.count, 5);
    EXPECT_EQ(full.layout, kFullLayout);
    EXPECT_EQ(arrays.FileDate, "2024/02/29");
    EXPECT_THAT(arrays.MeasureTime, ElementsAre("", "09:30:01", "09:30:02", "23:59:59", "", "00:00:00"));
    EXPECT_THAT(arrays.CountValue, ElementsAre(0, 12, 0, 65500.5, 1e-6, 5));
    EXPECT_THAT(arrays.ConcValue, ElementsAre(0, 1.25, 0, 0.3, 1234567.5, 0.063));
    EXPECT_THAT(arrays.DerivedValueA, ElementsAre(0, 1.25, 0.625, 0.3333, 10, 0.05));
    EXPECT_THAT(arrays.DerivedValueB, ElementsAre(0, 0.0002, 12.3457, 0, 1e7, 0.0001));
    EXPECT_THAT(arrays.IntegratedCount, ElementsAre(0, 12, 12, 1e15, 999999999999999, 17));
    EXPECT_THAT(arrays.IntegratedConc, ElementsAre(0, 1.25, 3, 0.001, 1234567.063, 0.667));
    EXPECT_THAT(arrays.ExtraField, ElementsAre("", "1.3", "", "", "", ""));
    EXPECT_THAT(arrays.ReplyLine, ElementsAre("", "", "", "", "", ""));
    EXPECT_TRUE(arrays.Averages);

    const DataFileContents brief = Contents(GoldenBytes("data-short.csv"));
    EXPECT_EQ(brief.layout, kShortLayout);
    EXPECT_FALSE(brief.arrays.Averages);
    EXPECT_EQ(brief.arrays.IntegratedConc, arrays.IntegratedConc);
    EXPECT_THAT(brief.arrays.DerivedValueA, ElementsAre(0, 0, 0, 0, 0, 0));
}

TEST(DataFileReader, WhatWasWrittenComesBackWithEitherDecimalSign)
{
    MeasurementArrays arrays;
    arrays.Create(6);
    arrays.FileDate = "5. Mar, 2024";
    arrays.ExtraField[1] = "1.25";
    const double concentrations[] = {0.016, 0, 3, 1e-6, 2.5e-7, 1.5}; // whole, with decimals, in E form
    for (std::size_t i = 1; i <= 6; ++i) {
        arrays.MeasureTime[i] = "09:30:0" + std::to_string(i);
        arrays.CountValue[i] = static_cast<double>(i * 7);
        arrays.ConcValue[i] = concentrations[i - 1];
        arrays.DerivedValueA[i] = static_cast<double>(i) / 8;
        arrays.DerivedValueB[i] = static_cast<double>(i);
        arrays.IntegratedCount[i] = arrays.IntegratedCount[i - 1] + arrays.CountValue[i];
        arrays.IntegratedConc[i] = arrays.IntegratedConc[i - 1] + arrays.ConcValue[i];
    }
    for (const std::int16_t layout : {kFullLayout, kShortLayout}) {
        for (const std::string sign : {".", ","}) {
            const std::string text = Written({arrays, 6, layout}, sign);
            const DataFileContents contents = Contents(text);
            EXPECT_EQ(contents.arrays.ConcValue, arrays.ConcValue) << sign;
            EXPECT_EQ(Written(contents, sign), text);
        }
    }
}

TEST(DataFileReader, TakesWhatSpreadsheetsAndEditorsMakeOfAFile)
{
    std::string unixLines = kPoint;
    std::erase(unixLines, '\r');
    struct Row {
        std::string_view what;
        std::string text;
    };
    const Row rows[] = {
        {"line feeds alone", unixLines},
        {"no end of the last line", kPoint.substr(0, kPoint.size() - 2)},
        {"empty lines behind", kPoint + "\r\n\n\r\n"},
        {"headings filled up with commas",
         With(With(With(kPoint, "2024/03/05", "2024/03/05,,,,,"), "Data,2", "Data,2,,,"), "0.0012",
              "0.0012,,,,,")},
        {"another version", With(kPoint, "2020", "9990,,,,")},
        {"comma, filled up", With(kComma, "0,0012", "0,0012,,,,")},
        {"comma", kComma},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Written(Contents(row.text), "."), kPoint) << row.what;

    const DataFileContents trimmed =
        Contents(With(kPoint, "00:00:00,48,1,0.508,0.509,60,1.016", "0:00:00,48,1,1,2,60,3"));
    EXPECT_THAT(trimmed.arrays.IntegratedConc, ElementsAre(0, 0.016, 3)) << "\".0\" taken away";
    const DataFileContents empty = Contents(kTop + "Data,0\r\nK Factor,0.0013\r\n" + kFull);
    EXPECT_EQ(empty.arrays.MeasureTime.size(), 1U);
    EXPECT_THAT(Written(empty, "."), testing::HasSubstr("K Factor,0.0013")); // is not lost with the rows
    EXPECT_EQ(Contents(kShortComma).arrays.ExtraField[1], "") << "a factor that was not told";
}

TEST(DataFileReader, TellsATimeWithCommasFromTheNumbers)
{
    struct Row {
        std::string_view what;
        std::string text;
        std::string time; ///< of the first reading
        double conc;
    };
    const Row rows[] = {
        {"point", With(kPoint, "23:59:59", "23,5.9\0:\x01,9"s), "23,5.9\0:\x01,9"s, 0.016},
        {"point, as many pieces as with a comma", With(kPoint, "23:59:59", "2,3,:,5"), "2,3,:,5", 0.016},
        {"comma", With(With(kComma, "23:59:59", "23,59"), "00:00:00", "0,0"), "23,59", 0.016},
        {"comma, as many pieces as without noise",
         With(With(With(kComma, "23:59:59,12,0,016", "23,7,12,1"), "12,0,016\r", "12,1,0\r"), "1,016", "2,0"),
         "23,7", 1},
        {"comma, short", With(kShortComma, "23:59:59", "2,3,"), "2,3,", 0.016},
        {"no time", With(kComma, "23:59:59", ""), "", 0.016},
        {"comma, sum of counts wrong", With(kComma, "0,017,12,", "0,017,0,"), "23:59:59", 0.016},
    };
    for (const Row& row : rows) {
        const DataFileContents contents = Contents(row.text);
        ASSERT_EQ(contents.count, 2) << row.what;
        EXPECT_EQ(contents.arrays.MeasureTime[1], row.time) << row.what;
        EXPECT_THAT(contents.arrays.CountValue, ElementsAre(0, 12, 48)) << row.what;
        EXPECT_EQ(contents.arrays.ConcValue[1], row.conc) << row.what;
    }
}

TEST(DataFileReader, RefusesWhatIsNoneOfItsFiles)
{
    using enum DataFileFaultKind;
    const auto second = [](const std::string& row) { // of the readings, line 7
        return With(kPoint, "00:00:00,48,1,0.508,0.509,60,1.016", row);
    };
    const std::string manyRows = [] {
        std::string text = With(kPoint, "Data,2", "Data,65501");
        for (int i = 0; i < 65499; ++i)
            text += "00:00:00,0,0,0.0,0.0,60,1.016\r\n";
        return text;
    }();
    struct Row {
        std::string_view what;
        std::string text;
        DataFileFaultKind kind;
        int line = 0;
        int present = 0;
    };
    const Row rows[] = {
        {"nothing", "", NotADataFile},
        {"zeros", std::string(100000, '\0'), NotADataFile},
        {"line ends", std::string(100000, '\n'), NotADataFile},
        {"megabytes without a line", "Program Ver.," + std::string(20 << 20, ','), NotADataFile},
        {"a key missing", With(kPoint, "Date,", "Day,"), NotADataFile},
        {"another case", With(kPoint, "Time,Rel", "time,Rel"), NotADataFile},
        {"no columns", kTop + "Data,2\r\nK Factor,0.0012\r\n", NotADataFile},
        {"one more column", With(kPoint, "m3])\r\n", "m3]),x\r\n"), NotADataFile},
        {"count no number", With(kPoint, "Data,2", "Data,2x"), BadLine, 3},
        {"count with a sign", With(kPoint, "Data,2", "Data,-2"), BadLine, 3},
        {"count missing", With(kPoint, "Data,2", "Data,"), BadLine, 3},
        {"one reading too many for a run", manyRows, TooLarge},
        {"count beyond any integer", With(kPoint, "Data,2", "Data,99999999999999999999"), TooLarge},
        {"factor of three pieces", With(kPoint, "0.0012", "0,0,1"), BadLine, 4},
        {"factor below zero", With(kPoint, "0.0012", "-0.0012"), BadLine, 4},
        {"factor missing", With(kPoint, "0.0012", ""), BadLine, 4},
        {"rows missing", With(kPoint, "Data,2", "Data,65500"), FewerRows, 0, 2},
        {"cut off in a row", With(kPoint, "Data,2", "Data,4") + "00:00:01,4", FewerRows, 0, 2},
        {"cut off in the last row", kPoint.substr(0, kPoint.size() - 9), BadLine, 7},
        {"one row more", kPoint + "00:00:01,0,0,0.5,0.5,60,1.016\r\n", MoreRows},
        {"empty line between", With(kPoint, "\r\n00:", "\r\n\r\n00:"), BadLine, 7},
        {"empty number", second("00:00:00,48,,0.508,0.509,60,1.016"), BadLine, 7},
        {"below zero", second("00:00:00,48,-1,0.508,0.509,60,1.016"), BadLine, 7},
        {"infinite", second("00:00:00,inf,1,0.508,0.509,60,1.016"), BadLine, 7},
        {"beyond a double", second("00:00:00,48,1E+999,0.508,0.509,60,1.016"), BadLine, 7},
        {"not to its end", second("00:00:00,48,1 mg,0.508,0.509,60,1.016"), BadLine, 7},
        {"a line end in the time", With(kPoint, "00:00:00", "00:\n0:00"), BadLine, 7},
        {"digits without end", second("00:00:00," + std::string(1 << 20, '0') + ",1,0.5,0.5,6,1.0"), BadLine,
         7},
        {"time without end", second(std::string(1 << 20, '1') + ",48,1,0.508,0.509,60,1.016"), BadLine, 7},
        {"a comma row among points", second("00:00:00,48,1,0,508,0,509,60,1,016"), BadLine, 7},
        {"a point row among commas", With(kComma, "48,1,0,508,0,509,60,1,016", "48,1,0.508,0.509,60,1.016"),
         BadLine, 7},
        {"a point in a comma row", With(kComma, "48,1,0,", "48,1.5,0,"), BadLine, 7},
        {"factor with another sign", With(kComma, "0,0012", "0.0012"), BadLine, 6},
        {"a comma too many, count or time", With(kComma, "23:59:59,12", "23,12,12,13"), BadLine, 6},
        {"full rows in the short layout", With(kPoint, kFull, kShort), BadLine, 6},
    };
    for (const Row& row : rows) {
        DataFileContents contents;
        contents.count = 77;
        const auto fault = ReadDataFile(row.text, contents);
        ASSERT_TRUE(fault) << row.what;
        EXPECT_EQ(fault->kind, row.kind) << row.what;
        EXPECT_EQ(fault->line, row.line) << row.what;
        EXPECT_EQ(fault->present, row.present) << row.what;
        EXPECT_EQ(contents.count, 77) << row.what;
    }
}

/// Damaged files are refused, or what is taken from them can be saved and is the same again.
TEST(DataFileReader, DamagedFilesDoNoHarm)
{
    std::mt19937 random(20240305);
    const auto below = [&](std::size_t limit) { return random() % std::max<std::size_t>(limit, 1); };
    constexpr std::string_view kBytes = "0123456789,,,,..:E+-\r\n\0\xFF\xEF x"sv;
    const std::string sources[] = {kPoint, kComma, kShortComma};
    int taken = 0;
    for (int i = 0; i < 6000; ++i) {
        std::string text = sources[below(3)];
        for (std::size_t changes = 1 + below(3); changes > 0; --changes) {
            const std::size_t at = below(8) > 0 ? text.size() - below(90) : below(text.size()); // in the rows
            const std::size_t length = std::min(below(12), text.size() - at);
            const char byte = kBytes[below(kBytes.size())];
            switch (below(4)) {
            case 0:
                text.insert(at, 1, byte);
                break;
            case 1:
                text.erase(at, length);
                break;
            case 2:
                text.insert(at, text.substr(at, length));
                break;
            default:
                text.replace(at, std::min<std::size_t>(length, 1), 1, byte);
            }
        }
        DataFileContents contents;
        if (ReadDataFile(text, contents))
            continue;
        ++taken;
        const std::string written = Written(contents, ".");
        ASSERT_EQ(Written(Contents(written), "."), written) << text;
        for (const auto* numbers : {&contents.arrays.CountValue, &contents.arrays.ConcValue,
                                    &contents.arrays.IntegratedConc, &contents.arrays.DerivedValueB}) {
            ASSERT_EQ(numbers->size(), static_cast<std::size_t>(contents.count) + 1);
            ASSERT_TRUE(std::ranges::all_of(*numbers, [](double n) { return std::isfinite(n) && n >= 0; }))
                << text;
        }
    }
    EXPECT_GT(taken, 600); // or the changes are too rough to reach the rows
    EXPECT_LT(taken, 5400);
}

TEST(DateReadings, DatesReadingsAcrossMidnightOrSaysWhatIsWrong)
{
    using enum DatingProblem;
    using std::chrono::local_days;
    const LocalMoment day = local_days{2024y / 2 / 29};
    struct Row {
        std::string_view what;
        std::string date;
        std::vector<std::string> times;
        DatingProblem problem;
        std::vector<LocalMoment> moments;
    };
    const Row rows[] = {
        {"a step backwards is the next day",
         "29.02.24",
         {"23:59:59", "0:00:00", "00:00:00", "11:59:59", "11:59:58"},
         None,
         {day + 86399s, day + 24h, day + 24h, day + 36h - 1s, day + 60h - 2s}},
        {"no readings", "29.2.2024", {}, None, {}},
        {"not in the calendar", "29.02.2023", {"00:00:00"}, Date, {}},
        {"a month too many", "01.13.2024", {"00:00:00"}, Date, {}},
        {"no date", "", {"00:00:00"}, Date, {}},
        {"date and time", "x", {"x"}, Date, {}},
        {"not of a day", "29.02.2024", {"23:59:59", "24:00:00"}, Time, {}},
        {"no time", "29.02.2024", {"", "23:59:59"}, Time, {}},
    };
    for (const Row& row : rows) {
        MeasurementArrays arrays;
        arrays.Create(static_cast<std::int32_t>(row.times.size()));
        std::ranges::copy(row.times, arrays.MeasureTime.begin() + 1);
        arrays.FileDate = row.date;
        FixedLocale locale;
        locale.shortDateFormat = "dd.MM.yyyy";
        LocaleDescription description;
        EXPECT_EQ(DateReadings(arrays, description, locale, day), row.problem) << row.what;
        EXPECT_EQ(arrays.Dated, row.problem == None) << row.what;
        for (std::size_t i = 0; i < row.moments.size(); ++i)
            EXPECT_EQ(arrays.Moment[i + 1], row.moments[i]) << row.what << ", reading " << i + 1;
    }
}

} // namespace
} // namespace quorvane
