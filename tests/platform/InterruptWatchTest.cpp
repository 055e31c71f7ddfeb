#include "platform/InterruptWatch.h"

#include <csignal>
#include <gtest/gtest.h>

namespace quorvane::test {
namespace {

void (*HandlerOf(int signal))(int)
{
    struct sigaction now {};
    ::sigaction(signal, nullptr, &now);
    return now.sa_handler;
}

TEST(InterruptWatch, CountsEachRequestSinceItBegan)
{
    constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL); // a test started in the background inherits an ignored interrupt
    {
        const InterruptWatch watch;
        EXPECT_EQ(watch.Count(), 0);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGINT})
            std::raise(signal);
        EXPECT_EQ(watch.Count(), 4);
        std::raise(SIGPIPE);
        EXPECT_EQ(watch.Count(), 4) << "a reader that went away is no request";
    }
    for (const int signal : kSignals)
        EXPECT_EQ(HandlerOf(signal), SIG_DFL) << signal;
    EXPECT_EQ(InterruptWatch().Count(), 0);
}

TEST(InterruptWatch, AnInterruptThatWasIgnoredIsCounted)
{
    std::signal(SIGINT, SIG_IGN);
    {
        const InterruptWatch watch;
        std::raise(SIGINT);
        EXPECT_EQ(watch.Count(), 1) << "whoever interrupts a program in the background means it";
    }
    EXPECT_EQ(HandlerOf(SIGINT), SIG_IGN);
    std::signal(SIGINT, SIG_DFL);
}

TEST(InterruptWatch, AProgramMeantToOutliveItsTerminalDoes)
{
    std::signal(SIGHUP, SIG_IGN);
    {
        const InterruptWatch watch;
        std::raise(SIGHUP);
        EXPECT_EQ(watch.Count(), 0);
    }
    EXPECT_EQ(HandlerOf(SIGHUP), SIG_IGN);
    std::signal(SIGHUP, SIG_DFL);
}

} // namespace
} // namespace quorvane::test
