#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <string_view>
#include <windows.h>

namespace quorvane {

/// Writes to a stream on a thread of its own: neither a pipe nor a console tells how much it takes without a
/// wait, and a console in which somebody is selecting text takes nothing at all. Lives until the program
/// ends, also while a write is held up.
class StreamWriter {
public:
    explicit StreamWriter(HANDLE stream) : stream_(stream) {}
    StreamWriter(const StreamWriter&) = delete;
    StreamWriter& operator=(const StreamWriter&) = delete;

    /// Begins to write `text`, unless an earlier write still goes on, and looks for a moment whether it is
    /// out. What was not taken has to be offered again first.
    /// @return bytes of `text` that are out; all of them when nobody can read any more
    [[nodiscard]] std::size_t Write(std::string_view text);

private:
    enum class State { Idle, UnderWay, Done };

    void WriteForEver();

    const HANDLE stream_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string bytes_; ///< what is written now; only the thread's while under way
    State state_ = State::Idle;
    bool hasThread_ = false;
    bool nobodyReads_ = false;
};

} // namespace quorvane
