#include "platform/InterruptWatch.h"

#include <csignal>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using Handler = void (*)(int);

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
        EXPECT_EQ(std::signal(signal, SIG_DFL), Handler(SIG_DFL)) << signal;
    EXPECT_EQ(InterruptWatch().Count(), 0);
}

TEST(InterruptWatch, OfIgnoredSignalsOnlyTheInterruptCounts)
{
    for (const int signal : {SIGINT, SIGHUP}) {
        std::signal(signal, SIG_IGN);
        {
            const InterruptWatch watch;
            std::raise(signal);
            // Whoever interrupts a program in the background means it; one meant to outlive its terminal
            // does.
            EXPECT_EQ(watch.Count(), signal == SIGINT ? 1 : 0);
        }
        EXPECT_EQ(std::signal(signal, SIG_DFL), Handler(SIG_IGN)) << "as it was";
    }
}

} // namespace
} // namespace quorvane
