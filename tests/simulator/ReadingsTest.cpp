#include "simulator/Readings.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(Readings, SecondColumnBelowOneHeaderLine)
{
    struct Row {
        std::string_view what;
        std::string_view text;
        std::vector<double> values;
    };
    const Row rows[] = {
        {"no line end at the end", "s,mg_m3\r\n1,0.008\r\n2,12.5", {0.008, 12.5}},
        {"blank lines", "s,mg_m3\n\n1,0.1\n\r\n  \n2,0.2\n\n", {0.1, 0.2}},
        {"further columns and blanks", "s,mg_m3,x\n1, 0.1 ,7\n2,\t0.2,\n", {0.1, 0.2}},
        {"the header is whatever stands there", "1,9\n2,0.1\n", {0.1}},
    };
    for (const Row& row : rows) {
        std::vector<double> values = {42};
        EXPECT_EQ(ParseReadings(row.text, values), std::nullopt) << row.what;
        EXPECT_EQ(values, row.values) << row.what;
    }
    std::vector<double> values;
    EXPECT_EQ(ParseReadings("s,mg_m3\n\n", values), "there is no reading in it");
    EXPECT_EQ(ParseReadings("s,c\n\n1,0.1\n2,0.1mg\n", values),
              "line 4: the second column is \"0.1mg\", not a concentration in mg/m3");
    for (const std::string_view text : {"s,c\n0.1\n", "s,c\n1,-0.1\n", "s,c\n1,nan\n", "s,c\n1,1e999\n"})
        EXPECT_TRUE(ParseReadings(text, values)) << text;
}

} // namespace
} // namespace quorvane
