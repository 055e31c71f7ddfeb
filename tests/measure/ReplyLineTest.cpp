#include "measure/ReplyLine.h"

#include "measure/SimulatedReading.h"

#include <deque>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(ReplyLine, IsTakenApart)
{
    struct Row {
        std::string_view what;
        std::string_view line;
        std::string_view time;
        double count, conc;
        std::string_view extra;
    };
    const Row rows[] = {
        {"four fields", "09:30:01;0000012;001.250;1.2\r\n", "09:30:01", 12, 1.25, "1.2"},
        {"three fields", "09:30:01;0000012;001.250\r\n", "09:30:01", 12, 1.25, ""},
        {"three fields without line end", "09:30:01;0000012;001.250", "09:30:01", 12, 1.25, ""},
        {"25 characters have no fourth field", "09:30:01;00012;001.2;1.2\n", "09:30:01", 12, 1.2, ""},
        {"26 characters have one", "09:30:01;00012;001.2;1.2\r\n", "09:30:01", 12, 1.2, "1.2"},
        {"negative counts 0", "09:30:01;-000012;-01.250;1.2\r\n", "09:30:01", 0, 0, "1.2"},
        {"blanks in front of numbers", "09:30:01;     12;  1.250; 1.2\r\n", "09:30:01", 12, 1.25, "1.2"},
        {"a letter ends a number", "09:30:01;0001x12;001.2E5;1.2kg\r\n", "09:30:01", 1, 1.2, "1.2"},
        {"empty and non-numeric fields", "09:30:01;;abc;\r\n 0123456789", "09:30:01", 0, 0, "0"},
        {"more fields than four", "09:30:01;0000012;001.250;1.2;9\r\n", "09:30:01", 12, 1.25, "1.2"},
        {"two lines run together", "09:30:01;0000012;001.250;1.209:30:02;0000013;001.300;1.2\r\n", "09:30:01",
         12, 1.25, "1.209"},
        {"no separator", "0123456789012345678901234\r\n", "", 0, 0, ""},
        {"an endless number", "09:30:01;99999999999999999999;001.250\r\n", "09:30:01", 1e20, 1.25, ""},
    };
    for (const Row& row : rows) {
        const Reading reading = ParseReplyLine(row.line);
        EXPECT_EQ(reading.time, row.time) << row.what;
        EXPECT_EQ(reading.count, row.count) << row.what;
        EXPECT_EQ(reading.conc, row.conc) << row.what;
        EXPECT_EQ(reading.extra, row.extra) << row.what;
    }
}

TEST(SimulatedLine, HasTheShapeOfTheInstruments)
{
    const LocalMoment nine = std::chrono::local_days(std::chrono::year(2024) / 5 / 1) + std::chrono::hours(9);
    struct Row {
        int sample;
        double first, second;
        std::string_view line;
    };
    const Row rows[] = {
        {1, 0.0, 0.0, "09:00:00;0000000;000.000;1.2"},
        {10, 0.999, 0.5, "09:00:00;0000004;002.000;1.2"},
        {11, 0.2, 0.5, "09:00:00;0000001;003.000;1.2"},
        {11, 0.199, 0.999, "09:00:00;0000000;005.994;1.2"},
    };
    for (const Row& row : rows) {
        std::deque<double> draws{row.first, row.second}; // the count is drawn first
        const auto draw = [&draws] {
            const double value = draws.front();
            draws.pop_front();
            return value;
        };
        EXPECT_EQ(SimulatedLine(row.sample, nine, draw), row.line);
    }
}

} // namespace
} // namespace quorvane
