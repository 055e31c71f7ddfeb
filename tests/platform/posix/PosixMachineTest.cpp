#include "platform/Platform.h"
#include "tests/support/ScopedEnvironment.h"

#include <ctime>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(LocalClock, ShowsTheTimeOfTheZone)
{
    const ScopedEnvironment zone("TZ", "XST-5:45"); // 5 h 45 min ahead
    ::tzset();
    const auto before = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    const LocalMoment shown = MakePlatform().clock->Now();
    const auto after = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    constexpr std::int64_t kAhead = 5 * 3600 + 45 * 60;
    EXPECT_GE(shown.time_since_epoch().count(), before + kAhead - 1); // the two clocks may round apart
    EXPECT_LE(shown.time_since_epoch().count(), after + kAhead);
}

TEST(PortNames, EachNumberHasItsDeviceUnlessAVariableNamesAnother)
{
    const ScopedEnvironment three("QUORVANE_COM3", "/dev/pts/7");
    const ScopedEnvironment four("QUORVANE_COM4", "");
    const ScopedEnvironment fifteen("QUORVANE_COM15", "/dev/serial/by-id/meter");
    const ScopedEnvironment sixteen("QUORVANE_COM16", "/dev/pts/8");
    struct Row {
        int number;
        std::string_view path;
    };
    const Row rows[] = {
        {1, "/dev/ttyS0"},
        {3, "/dev/pts/7"},
        {4, "/dev/ttyS3"},
        {9, "/dev/ttyUSB4"},
        {10, "/dev/ttyACM0"},
        {15, "/dev/serial/by-id/meter"},
        {16, ""},
    };
    const Platform platform = MakePlatform();
    for (const Row& row : rows)
        EXPECT_EQ(platform.portNames->Device(row.number).value_or(PortDevice{}).path, row.path) << row.number;
    EXPECT_EQ(EnvironmentText("QUORVANE_COM4"), "") << "empty is not absent";
    const ScopedEnvironment none("QUORVANE_COM15", std::nullopt);
    EXPECT_FALSE(platform.portNames->Device(15));
}

} // namespace
} // namespace quorvane
