#include "files/AppFiles.h"
#include "platform/Platform.h"

#include <ctime>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(Platform, FindsTheFolderOfTheProgram)
{
    EXPECT_TRUE(std::filesystem::exists(PathFromUtf8(FileInFolder(ProgramFolder(), QUORVANE_TEST_PROGRAM))));
}

TEST(LocalClock, ShowsTheTimeOfTheZone)
{
    const auto clock = MakePlatform().clock;
    const auto minuteOf = [](std::time_t time) {
        const std::tm local = *std::localtime(&time);
        return local.tm_mday * 1440 + local.tm_hour * 60 + local.tm_min;
    };
    const int before = minuteOf(std::time(nullptr));
    const LocalMoment now = clock->Now();
    const int after = minuteOf(std::time(nullptr));
    const auto day = std::chrono::floor<std::chrono::days>(now);
    const auto date = std::chrono::year_month_day(day);
    const int shown = static_cast<int>(static_cast<unsigned>(date.day())) * 1440 +
                      static_cast<int>(std::chrono::floor<std::chrono::minutes>(now - day).count());
    EXPECT_TRUE(shown == before || shown == after) << before << ' ' << shown << ' ' << after;
}

} // namespace
} // namespace quorvane
