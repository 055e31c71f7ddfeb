#include "simulator/InstrumentOptions.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using Arguments = std::vector<std::string>;

TEST(InstrumentOptions, SetTheInstrumentUp)
{
    InstrumentOptions options;
    ASSERT_FALSE(ReadInstrumentOptions(Arguments{"--at-end", "loop", "--interval", "0.5", "--start-at",
                                                 "2026-07-31 23:59:58", "--factor", "1.4", "--three-fields",
                                                 "--fault", "silent:N", "--fault", "garbage:2"},
                                       options));
    EXPECT_EQ(options.atEnd, AtEnd::Loop);
    EXPECT_EQ(options.setup.interval, 500ms);
    EXPECT_EQ(options.startAt, LocalMoment(1785542398s)); // date -u -d '2026-07-31 23:59:58' +%s
    EXPECT_EQ(options.setup.factor, 1.4);
    EXPECT_TRUE(options.setup.threeFields);
    EXPECT_EQ(options.setup.faults.size(), 2U);
}

TEST(InstrumentOptions, RefusesWhatMakesNoSense)
{
    const Arguments rows[] = {
        {"--start-at", "2025-02-29 00:00:00"},
        {"--start-at", "2026-01-01 24:00:00"},
        {"--start-at", "2026-01-01 00:00:+1"},
        {"--start-at", "2026-7-31 09:30:00"},
        {"--interval", "0"},
        {"--speed", "-1"},
        {"--factor", "1.35"},
        {"--fault", "loud"},
        {"--fault", "unplug:5"}, // a device that comes back needs a --link
        {"--at-end", "stop"},
        {"--factor", "10"},
        {"morning.csv"},
    };
    for (const Arguments& row : rows) {
        InstrumentOptions options;
        EXPECT_TRUE(ReadInstrumentOptions(row, options)) << row.front() << row.back();
    }
}

} // namespace
} // namespace quorvane
