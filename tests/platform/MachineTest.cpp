#include "platform/Platform.h"
#include "tests/platform/ScopedEnvironment.h"

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>

namespace quorvane::test {
namespace {

TEST(Platform, HasEveryPart)
{
    const Platform platform = MakePlatform();
    EXPECT_TRUE(platform.serial && platform.portNames && platform.portProbe && platform.files);
    EXPECT_TRUE(platform.codePage && platform.locale && platform.clock);
    EXPECT_EQ(platform.codePage->FromUtf8("粉じん µ"), "粉じん µ");
}

TEST(Platform, FindsTheFolderOfTheProgram)
{
    EXPECT_TRUE(std::filesystem::exists(ProgramFolder() + '/' + program_invocation_short_name));
}

TEST(Platform, ReadsTheEnvironment)
{
    const ScopedEnvironment set("QUORVANE_TEST_TEXT", "値");
    const ScopedEnvironment empty("QUORVANE_TEST_EMPTY", "");
    EXPECT_EQ(EnvironmentText("QUORVANE_TEST_TEXT"), "値");
    EXPECT_EQ(EnvironmentText("QUORVANE_TEST_EMPTY"), "");
    EXPECT_EQ(EnvironmentText("QUORVANE_TEST_ABSENT"), std::nullopt);
}

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

TEST(PortNames, EachNumberHasItsDevice)
{
    const struct {
        int number;
        std::optional<std::string> path;
    } rows[] = {
        {0, std::nullopt},   {1, "/dev/ttyS0"},    {4, "/dev/ttyS3"},    {5, "/dev/ttyUSB0"},
        {9, "/dev/ttyUSB4"}, {10, "/dev/ttyACM0"}, {14, "/dev/ttyACM4"}, {15, std::nullopt},
        {16, std::nullopt},  {-1, std::nullopt},
    };
    const Platform platform = MakePlatform();
    for (const auto& row : rows) {
        const auto device = platform.portNames->Device(row.number);
        EXPECT_EQ(device ? std::optional(device->path) : std::nullopt, row.path) << row.number;
    }
}

TEST(PortNames, AVariableNamesAnyDeviceInstead)
{
    const ScopedEnvironment three("QUORVANE_COM3", "/dev/pts/7");
    const ScopedEnvironment four("QUORVANE_COM4", "");
    const ScopedEnvironment fifteen("QUORVANE_COM15", "/dev/serial/by-id/meter");
    const ScopedEnvironment sixteen("QUORVANE_COM16", "/dev/pts/8");
    const Platform platform = MakePlatform();
    EXPECT_EQ(platform.portNames->Device(3)->path, "/dev/pts/7");
    EXPECT_EQ(platform.portNames->Device(4)->path, "/dev/ttyS3");
    EXPECT_EQ(platform.portNames->Device(15)->path, "/dev/serial/by-id/meter");
    EXPECT_FALSE(platform.portNames->Device(16));
}

} // namespace
} // namespace quorvane::test
