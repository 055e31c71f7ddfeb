#include "platform/InterruptWatch.h"

#include <atomic>
#include <csignal>
#include <iterator>

namespace quorvane {
namespace {

std::atomic<int> requests{0};
static_assert(std::atomic<int>::is_always_lock_free, "counted in a signal handler");

constexpr int kWatched[] = {SIGINT, SIGTERM, SIGHUP};

void CountRequest(int /*signal*/)
{
    requests.fetch_add(1, std::memory_order_relaxed);
}

} // namespace

struct InterruptWatch::Saved {
    struct sigaction watched[std::size(kWatched)];
    struct sigaction pipe;
    struct sigaction fileSize;
};

InterruptWatch::InterruptWatch() : saved_(std::make_unique<Saved>()), countAtStart_(requests.load())
{
    struct sigaction count {};
    count.sa_handler = &CountRequest;
    count.sa_flags = SA_RESTART; // a file being saved is not disturbed
    for (std::size_t i = 0; i < std::size(kWatched); ++i) {
        ::sigaction(kWatched[i], &count, &saved_->watched[i]);
        // A program started to outlive its terminal goes on when that closes. An interrupt is counted even
        // when it was ignored so far: a shell sets that for what it starts in the background, and whoever
        // sends one to such a program means it.
        if (kWatched[i] == SIGHUP && saved_->watched[i].sa_handler == SIG_IGN)
            ::sigaction(SIGHUP, &saved_->watched[i], nullptr);
    }
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGPIPE, &ignore, &saved_->pipe);
    ::sigaction(SIGXFSZ, &ignore,
                &saved_->fileSize); // a file beyond the user's limit fails to be written instead
}

InterruptWatch::~InterruptWatch()
{
    for (std::size_t i = 0; i < std::size(kWatched); ++i)
        ::sigaction(kWatched[i], &saved_->watched[i], nullptr);
    ::sigaction(SIGPIPE, &saved_->pipe, nullptr);
    ::sigaction(SIGXFSZ, &saved_->fileSize, nullptr);
}

int InterruptWatch::Count() const
{
    return requests.load(std::memory_order_relaxed) - countAtStart_;
}

} // namespace quorvane
