#include "simulator/InstrumentOptions.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using Arguments = std::vector<std::string>;

constexpr LocalMoment Seconds(std::int64_t since1970)
{
    return LocalMoment(std::chrono::seconds(since1970));
}

TEST(InstrumentOptions, ReadsEachOption)
{
    InstrumentOptions options;
    ASSERT_FALSE(
        ReadInstrumentOptions(Arguments{"--link",   "/tmp/line", "--readings",     "a.csv",
                                        "--at-end", "loop",      "--interval",     "0.5",
                                        "--speed",  "50",        "--start-at",     "2026-07-31 23:59:58",
                                        "--factor", "1.4",       "--three-fields", "--verbose",
                                        "--fault",  "silent:N",  "--fault",        "garbage:2"},
                              options));
    EXPECT_EQ(options.link, "/tmp/line");
    EXPECT_EQ(options.readingsPath, "a.csv");
    EXPECT_EQ(options.atEnd, AtEnd::Loop);
    EXPECT_EQ(options.setup.interval, 500ms);
    EXPECT_EQ(options.setup.speed, 50);
    EXPECT_EQ(options.startAt, Seconds(1785542398)); // date -u -d '2026-07-31 23:59:58' +%s
    EXPECT_EQ(options.setup.factor, 1.4);
    EXPECT_TRUE(options.setup.threeFields);
    EXPECT_TRUE(options.verbose);
    ASSERT_EQ(options.setup.faults.size(), 2U);
    EXPECT_EQ(options.setup.faults[1].kind, FaultKind::Garbage);
}

TEST(InstrumentOptions, WithoutAnyItIsAnOrdinaryInstrument)
{
    InstrumentOptions options;
    ASSERT_FALSE(ReadInstrumentOptions(Arguments{}, options));
    EXPECT_EQ(options.setup.interval, 1s);
    EXPECT_EQ(options.setup.speed, 1);
    EXPECT_EQ(options.setup.factor, 1.3);
    EXPECT_EQ(options.atEnd, AtEnd::Repeat);
    EXPECT_FALSE(options.setup.threeFields);
    EXPECT_FALSE(options.startAt);
    EXPECT_FALSE(options.help || options.version || options.verbose);
    EXPECT_TRUE(options.setup.faults.empty() && options.link.empty() && options.readingsPath.empty());
}

TEST(InstrumentOptions, RefusesWhatMakesNoSense)
{
    const Arguments rows[] = {
        {"--interval", "0"},  {"--interval", "901"},  {"--speed", "0"},       {"--speed", "-1"},
        {"--factor", "1.35"}, {"--factor", "10"},     {"--fault", "loud"},    {"--fault", "hang-up"},
        {"--at-end", "stop"}, {"--start-at", "noon"}, {"--three-fields=yes"}, {"morning.csv"},
    };
    for (const Arguments& row : rows) {
        InstrumentOptions options;
        const auto fault = ReadInstrumentOptions(row, options);
        ASSERT_TRUE(fault) << row.front() << row.back();
        EXPECT_EQ(fault->text.find('\n'), std::string::npos);
    }
}

TEST(InstrumentOptions, AMomentIsAnExistingDateAndTime)
{
    EXPECT_EQ(ParseMoment("1970-01-01 00:00:00"), Seconds(0));
    EXPECT_EQ(ParseMoment("2024-02-29 12:00:01"), Seconds(1709208001));
    const std::string_view wrong[] = {
        "",
        "2026-07-31",
        "2026-07-31T09:30:00",
        "2026-07-31 09:30:00 ",
        "2026-7-31 09:30:00",
        "2025-02-29 00:00:00",
        "2026-13-01 00:00:00",
        "2026-00-01 00:00:00",
        "2026-01-01 24:00:00",
        "2026-01-01 00:60:00",
        "2026-01-01 00:00:60",
        "1969-12-31 23:59:59",
        "2026-01-01 00:00:+1",
    };
    for (const std::string_view text : wrong)
        EXPECT_FALSE(ParseMoment(text)) << text;
}

} // namespace
} // namespace quorvane
