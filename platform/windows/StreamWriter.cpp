#include "platform/windows/StreamWriter.h"

#include <chrono>
#include <thread>
#include <utility>

namespace quorvane {

namespace {
constexpr std::chrono::milliseconds kMoment{5}; // a reader who reads has taken it long before
}

std::size_t StreamWriter::Write(std::string_view text)
{
    std::unique_lock lock(mutex_);
    if (nobodyReads_)
        return text.size();
    if (!std::exchange(hasThread_, true))
        std::thread([this] { WriteForEver(); }).detach();
    if (state_ == State::Idle) {
        bytes_ = text;
        state_ = State::UnderWay;
        changed_.notify_all();
        changed_.wait_for(lock, kMoment, [this] { return state_ == State::Done; });
    }
    if (state_ != State::Done)
        return 0;
    state_ = State::Idle;
    return nobodyReads_ ? text.size() : bytes_.size();
}

void StreamWriter::WriteForEver()
{
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return state_ == State::UnderWay; });
        lock.unlock();
        DWORD count = 0;
        bool written = true;
        for (std::string_view rest = bytes_; written && !rest.empty(); rest.remove_prefix(count)) {
            written = ::WriteFile(stream_, rest.data(), static_cast<DWORD>(rest.size()), &count, nullptr) &&
                      count > 0;
        }
        lock.lock();
        nobodyReads_ = !written;
        state_ = State::Done;
        changed_.notify_all();
    }
}

} // namespace quorvane
