#pragma once

#include "serial/SerialControl.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <termios.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace quorvane::test {

constexpr std::chrono::seconds kPatience{10}; ///< what is on its way has come by then, on any machine

/// Both ends of a pseudo-terminal. The master end is the instrument's; the other end is held open as well, so
/// that a test can look at the line's settings and see that bytes have arrived.
class PseudoTerminal {
public:
    PseudoTerminal() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK))
    {
        std::array<char, 128> name{};
        if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0 ||
            ::ptsname_r(master_, name.data(), name.size()) != 0)
            throw std::runtime_error("no pseudo-terminal");
        path_ = name.data();
        held_ = ::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
        termios raw{};
        ::tcgetattr(held_, &raw);
        ::cfmakeraw(&raw);
        ::tcsetattr(held_, TCSANOW, &raw);
    }
    ~PseudoTerminal()
    {
        HangUp();
        ::close(held_);
    }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    [[nodiscard]] PortDevice Device() const { return {path_}; }
    [[nodiscard]] int HeldEnd() const { return held_; }

    /// Sets the line as a terminal that people type at has it: echo, line editing, translated line ends.
    void SetForTyping() const
    {
        termios mode{};
        ::tcgetattr(held_, &mode);
        mode.c_lflag |= ICANON | ECHO | ISIG | IEXTEN;
        mode.c_iflag |= ICRNL | BRKINT | ISTRIP | IXON | IXOFF | IXANY;
        mode.c_oflag |= OPOST | ONLCR;
        ::tcsetattr(held_, TCSANOW, &mode);
    }

    /// @return how much of `text` the line took
    std::size_t Write(std::string_view text) const
    {
        const ssize_t count = ::write(master_, text.data(), text.size());
        return count < 0 ? 0 : static_cast<std::size_t>(count);
    }

    /// Reads `count` bytes; fewer when no more come.
    [[nodiscard]] std::string Read(std::size_t count) const
    {
        std::string text;
        while (text.size() < count && WaitFor(master_)) {
            std::array<char, 4096> bytes{};
            const ssize_t got = ::read(master_, bytes.data(), std::min(bytes.size(), count - text.size()));
            if (got <= 0)
                break;
            text.append(bytes.data(), static_cast<std::size_t>(got));
        }
        return text;
    }

    /// Waits until bytes have arrived at the other end, without taking them.
    [[nodiscard]] bool BytesArrived() const { return WaitFor(held_); }

    void HangUp()
    {
        if (master_ >= 0)
            ::close(std::exchange(master_, -1));
    }

private:
    static bool WaitFor(int fd)
    {
        pollfd state{fd, POLLIN, 0};
        return ::poll(&state, 1, static_cast<int>(std::chrono::milliseconds(kPatience).count())) > 0 &&
               (state.revents & POLLIN) != 0;
    }

    int master_;
    int held_ = -1;
    std::string path_;
};

/// Polls until at least `count` bytes wait in the control. @return what waits then
inline int AwaitCount(SerialControl& control, int count)
{
    const auto end = std::chrono::steady_clock::now() + kPatience;
    int waiting = control.InBufferCount();
    while (waiting < count && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds{1});
        waiting = control.InBufferCount();
    }
    return waiting;
}

/// Text whose every position can be recognised.
inline std::string NumberedText(std::size_t size, int start = 0)
{
    std::string text;
    for (int i = start; text.size() < size; ++i)
        text += std::to_string(i) + ';';
    text.resize(size);
    return text;
}

} // namespace quorvane::test
