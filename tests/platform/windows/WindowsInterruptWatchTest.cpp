#include "platform/InterruptWatch.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>
#include <windows.h>

namespace quorvane {
namespace {

/// A console of this program's own, so that nobody else hears the request. It stays until the program ends.
bool MakeConsole()
{
    ::FreeConsole();
    return ::AllocConsole() != FALSE && ::SetConsoleCtrlHandler(nullptr, FALSE) != FALSE;
}

/// Waits until the watch counts that many requests, which come on a thread of their own. @return its count
int AwaitCount(const InterruptWatch& watch, int count)
{
    for (int i = 0; watch.Count() < count && i < 10'000; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return watch.Count();
}

TEST(WindowsInterruptWatch, CountsARequestSinceItBeganAndLetsTheProgramLive)
{
    ASSERT_TRUE(MakeConsole());
    const InterruptWatch before;
    EXPECT_EQ(before.Count(), 0);
    ASSERT_TRUE(::GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
    EXPECT_EQ(AwaitCount(before, 1), 1);
    EXPECT_EQ(InterruptWatch().Count(), 0);
}

} // namespace
} // namespace quorvane
