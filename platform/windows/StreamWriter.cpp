#include "platform/windows/StreamWriter.h"

#include "platform/windows/WideText.h"

#include <chrono>
#include <thread>
#include <utility>

namespace quorvane {

namespace {

constexpr std::chrono::milliseconds kMoment{5}; // a reader who reads has taken it long before

template <typename Text, typename Write>
bool PutPieces(Text rest, const Write& write)
{
    DWORD count = 0;
    for (; !rest.empty(); rest.remove_prefix(count))
        if (!write(rest.data(), static_cast<DWORD>(rest.size()), &count) || count == 0)
            return false;
    return true;
}

/// To a console in its own letters: what it makes of bytes depends on a code page that other programs use,
/// too.
bool Put(HANDLE stream, std::string_view utf8)
{
    DWORD mode = 0;
    if (!::GetConsoleMode(stream, &mode))
        return PutPieces(utf8, [&](const char* text, DWORD size, DWORD* count) {
            return ::WriteFile(stream, text, size, count, nullptr) != FALSE;
        });
    const std::wstring wide = Wide(utf8);
    return PutPieces(std::wstring_view(wide), [&](const wchar_t* text, DWORD size, DWORD* count) {
        return ::WriteConsoleW(stream, text, size, count, nullptr) != FALSE;
    });
}

} // namespace

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
        const bool written = Put(stream_, bytes_);
        lock.lock();
        nobodyReads_ = !written;
        state_ = State::Done;
        changed_.notify_all();
    }
}

} // namespace quorvane
