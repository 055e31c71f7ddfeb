#pragma once

#include "serial/SerialControl.h"

#include <chrono>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <termios.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace quorvane {

constexpr int kPatienceMs = 10'000; ///< what is on its way has come by then, on any machine

/// Both ends of a pseudo-terminal. The master end is the instrument's; the other end is held open as well, so
/// that a test can look at the line's settings and see that bytes have arrived.
class TerminalPair {
public:
    TerminalPair()
    {
        char name[128];
        if (::openpty(&master_, &held_, name, nullptr, nullptr) != 0)
            throw std::runtime_error("no pseudo-terminal");
        path_ = name;
        termios raw = Mode();
        ::cfmakeraw(&raw);
        ::tcsetattr(held_, TCSANOW, &raw);
    }
    ~TerminalPair()
    {
        HangUp();
        ::close(held_);
    }
    TerminalPair(const TerminalPair&) = delete;
    TerminalPair& operator=(const TerminalPair&) = delete;

    [[nodiscard]] PortDevice Device() const { return {path_}; }
    [[nodiscard]] int HeldEnd() const { return held_; }

    /// The line's settings.
    [[nodiscard]] termios Mode() const
    {
        termios mode{};
        ::tcgetattr(held_, &mode);
        return mode;
    }
    /// Sets the line as a terminal that people type at has it: echo, line editing, translated line ends.
    void SetForTyping() const
    {
        termios mode = Mode();
        mode.c_lflag |= ICANON | ECHO | ISIG | IEXTEN;
        mode.c_iflag |= ICRNL | BRKINT | ISTRIP | IXON | IXOFF | IXANY;
        mode.c_oflag |= OPOST | ONLCR;
        ::tcsetattr(held_, TCSANOW, &mode);
    }

    void Write(std::string_view text) const
    {
        EXPECT_EQ(::write(master_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    /// Reads `count` bytes; fewer when no more come.
    [[nodiscard]] std::string Read(std::size_t count) const
    {
        std::string text;
        for (char byte = 0; text.size() < count && WaitFor(master_) && ::read(master_, &byte, 1) == 1;)
            text += byte;
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
        return ::poll(&state, 1, kPatienceMs) > 0 && (state.revents & POLLIN) != 0;
    }

    int master_ = -1;
    int held_ = -1;
    std::string path_;
};

/// Polls until at least `count` bytes wait in the control. @return what waits then
inline int AwaitCount(SerialControl& control, int count)
{
    int waiting = control.InBufferCount();
    for (int i = 0; waiting < count && i < kPatienceMs; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
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

} // namespace quorvane
