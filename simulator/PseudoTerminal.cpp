#include "simulator/PseudoTerminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

namespace quorvane {
namespace {

std::string LastError(std::string_view what)
{
    const int error = errno;
    return std::string(what) + ": " + std::system_category().message(error);
}

bool MakeRaw(int descriptor)
{
    termios line{};
    if (tcgetattr(descriptor, &line) != 0)
        return false;
    cfmakeraw(&line);
    line.c_cflag |= CREAD | CLOCAL;
    cfsetispeed(&line, B38400);
    cfsetospeed(&line, B38400);
    return tcsetattr(descriptor, TCSANOW, &line) == 0;
}

} // namespace

std::optional<std::string> PseudoTerminal::Open()
{
    Close();
    near_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (near_ < 0)
        return LastError("no virtual serial line to be had");
    std::array<char, 128> name{};
    if (grantpt(near_) != 0 || unlockpt(near_) != 0 || ptsname_r(near_, name.data(), name.size()) != 0)
        return LastError("the virtual serial line has no device");
    path_ = name.data();
    // Besides setting the line, this first opening lets the near end tell from now on that nobody is there.
    if (!Refresh())
        return LastError(path_);
    return std::nullopt;
}

void PseudoTerminal::Close()
{
    if (near_ >= 0)
        close(near_);
    near_ = -1;
}

bool PseudoTerminal::HasClient() const
{
    pollfd state{near_, 0, 0};
    return poll(&state, 1, 0) == 0 || (state.revents & POLLHUP) == 0;
}

std::string PseudoTerminal::Read()
{
    std::string bytes;
    std::array<char, 4096> chunk{};
    constexpr std::size_t kAtOnce = 65536; // a client that floods the line must not keep the program here
    for (ssize_t length = 0;
         bytes.size() < kAtOnce && (length = read(near_, chunk.data(), chunk.size())) > 0;)
        bytes.append(chunk.data(), static_cast<std::size_t>(length));
    return bytes; // nothing more for now, or (EIO) nobody there
}

std::size_t PseudoTerminal::Write(std::string_view bytes)
{
    const ssize_t length = write(near_, bytes.data(), bytes.size());
    return length > 0 ? static_cast<std::size_t>(length) : 0;
}

bool PseudoTerminal::Refresh()
{
    // The device is held open no longer than this: while it is, nobody could tell that a client leaves.
    const int far = open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (far < 0)
        return HasClient(); // the next one is already there and has it for itself
    ioctl(far, TIOCNXCL);
    tcflush(far, TCIFLUSH);
    const bool raw = MakeRaw(far);
    const int error = errno;
    close(far);
    errno = error;
    return raw;
}

} // namespace quorvane
