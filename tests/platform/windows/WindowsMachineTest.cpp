#include "files/AppFiles.h"
#include "platform/Platform.h"
#include "platform/windows/Handle.h"
#include "platform/windows/WidePath.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsInstanceLock.h"
#include "tests/support/ScratchFolder.h"

#include <ctime>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(WindowsInstanceLock, IsTakenAtTheFirstQuestionAndHeldUntilItsEnd)
{
    const auto refused = [] { return WindowsInstanceLock().PreviousInstanceRunning(); };
    WindowsInstanceLock unasked;
    {
        WindowsInstanceLock lock;
        EXPECT_FALSE(lock.PreviousInstanceRunning()) << "nobody has asked yet";
        EXPECT_FALSE(lock.PreviousInstanceRunning()) << "it is no previous instance of itself";
        EXPECT_TRUE(refused());
        EXPECT_TRUE(refused()) << "who was refused has not taken it";
    }
    EXPECT_FALSE(refused());
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

TEST(UserDataFolder, IsTheUsersOwn)
{
    const std::string folder = UserDataFolder();
    ASSERT_TRUE(folder.ends_with("\\Quorvane")) << folder;
    EXPECT_TRUE(MakePlatform().folders->CanWrite(folder.substr(0, folder.rfind('\\')))) << folder;
}

TEST(EnvironmentText, IsWideAndTellsEmptyFromAbsent)
{
    constexpr wchar_t kName[] = L"QUORVANE_変数";
    ::SetEnvironmentVariableW(kName, L"測定 é");
    EXPECT_EQ(EnvironmentText("QUORVANE_変数"), "測定 é");
    ::SetEnvironmentVariableW(kName, L"");
    EXPECT_EQ(EnvironmentText("QUORVANE_変数"), "");
    ::SetEnvironmentVariableW(kName, nullptr);
    EXPECT_EQ(EnvironmentText("QUORVANE_変数"), std::nullopt);
}

/// Runs a program to its end. @return its exit code
DWORD RunProgram(const std::wstring& file, std::wstring commandLine)
{
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION info{};
    if (!::CreateProcessW(file.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &start, &info))
        return ::GetLastError();
    const Handle process(info.hProcess);
    const Handle thread(info.hThread);
    ::WaitForSingleObject(process.Get(), INFINITE);
    DWORD code = 0;
    ::GetExitCodeProcess(process.Get(), &code);
    return code;
}

TEST(ProgramFolder, MayLieDeepAndHaveANameInAnyScript)
{
    const ScratchFolder scratch;
    std::string folder = scratch.Path("測定");
    while (Wide(folder).size() < 200) // 260 is as far as Wine starts programs
        folder = FileInFolder(folder, "データ-0123456789");
    ASSERT_TRUE(MakePlatform().folders->Make(folder));
    const std::wstring copy = WidePath(FileInFolder(folder, QUORVANE_TEST_PROGRAM));
    const std::wstring original = WidePath(FileInFolder(ProgramFolder(), QUORVANE_TEST_PROGRAM));
    ASSERT_TRUE(::CopyFileW(original.c_str(), copy.c_str(), TRUE));
    EXPECT_EQ(RunProgram(copy, L"test --gtest_filter=Platform.FindsTheFolderOfTheProgram --gtest_brief=1"),
              0U);
}

} // namespace
} // namespace quorvane
