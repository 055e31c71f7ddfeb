#include "simulator/Readings.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(Readings, SecondColumnBelowOneHeaderLine)
{
    const struct {
        std::string_view what;
        std::string_view text;
        std::vector<double> values;
    } rows[] = {
        {"line feeds", "s,mg_m3\n1,0.008\n2,12.5\n", {0.008, 12.5}},
        {"carriage returns too", "s,mg_m3\r\n1,0.008\r\n2,12.5\r\n", {0.008, 12.5}},
        {"no line end at the end", "s,mg_m3\n1,0.008", {0.008}},
        {"blank lines", "s,mg_m3\n\n1,0.1\n\r\n  \n2,0.2\n\n", {0.1, 0.2}},
        {"further columns and blanks", "s,mg_m3,x\n1, 0.1 ,7\n2,\t0.2,\n", {0.1, 0.2}},
        {"the header is whatever stands there", "1,9\n2,0.1\n", {0.1}},
        {"a blank header", "\n2,0.1\n", {0.1}},
        {"zero and exponent", "s,c\n1,0\n2,0.0\n3,5e-3\n", {0, 0, 0.005}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        std::vector<double> values = {42};
        EXPECT_EQ(ParseReadings(row.text, values), std::nullopt);
        EXPECT_EQ(values, row.values);
    }
}

TEST(Readings, FaultsNameTheLine)
{
    const struct {
        std::string_view text;
        std::string_view fault;
    } rows[] = {
        {"", "there is no reading in it"},
        {"s,mg_m3", "there is no reading in it"},
        {"s,mg_m3\n\n\n", "there is no reading in it"},
        {"s,c\n1,0.1\n2,x\n", "line 3: the second column is \"x\", not a concentration in mg/m3"},
        {"s,c\n\n\n1,0.1mg\n", "line 4: the second column is \"0.1mg\", not a concentration in mg/m3"},
        {"s,c\n0.1\n", "line 2: the second column is \"\", not a concentration in mg/m3"},
        {"s,c\r\n1,\r\n", "line 2: the second column is \"\", not a concentration in mg/m3"},
        {"s,c\n1,-0.1\n", "line 2: the second column is \"-0.1\", not a concentration in mg/m3"},
        {"s,c\n1,nan\n", "line 2: the second column is \"nan\", not a concentration in mg/m3"},
        {"s,c\n1,1e999\n", "line 2: the second column is \"1e999\", not a concentration in mg/m3"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        std::vector<double> values;
        EXPECT_EQ(ParseReadings(row.text, values), row.fault);
    }
}

TEST(Readings, WhatComesAfterTheLastOne)
{
    const struct {
        AtEnd atEnd;
        std::vector<std::optional<double>> expected;
    } rows[] = {
        {AtEnd::Repeat, {1, 2, 2, 2}},
        {AtEnd::Silence, {1, 2, {}, {}}},
        {AtEnd::Loop, {1, 2, 1, 2}},
    };
    for (const auto& row : rows) {
        RecordedReadings readings({1, 2}, row.atEnd);
        for (int round = 0; round < 2; ++round) {
            for (const auto& expected : row.expected)
                EXPECT_EQ(readings.Next(), expected) << static_cast<int>(row.atEnd);
            readings.Restart();
        }
    }
}

TEST(GeneratedDust, StaysInItsRangeHasBurstsAndStartsAgainTheSame)
{
    GeneratedDust dust;
    std::vector<double> values(30000);
    std::generate(values.begin(), values.end(), [&dust] { return dust.Next().value(); });
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    EXPECT_GE(*least, 0.005);
    EXPECT_LE(*most, 5.0);
    EXPECT_GT(*most, 1.0);
    std::vector<double> sorted = values;
    std::nth_element(sorted.begin(), sorted.begin() + 15000, sorted.end());
    EXPECT_LT(sorted[15000], 0.2) << "mostly background";
    dust.Restart();
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(dust.Next(), values[static_cast<std::size_t>(i)]);
}

} // namespace
} // namespace quorvane
