#include "platform/posix/PosixSerialControl.h"

#include "platform/posix/SerialLine.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace quorvane {
namespace {

constexpr std::size_t kReadSize = 4096;

// What a line that is full to the brim holds (4,095 bytes) and what its driver keeps behind that, with room
// to spare. A limit, so that a line that never falls quiet does not keep the program here.
constexpr int kMostReadsToEmptyTheSystem = 32;

bool NothingNow(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK;
}

ssize_t ReadOnce(int fd, char* bytes, std::size_t size)
{
    ssize_t count = 0;
    do
        count = ::read(fd, bytes, size);
    while (count < 0 && errno == EINTR);
    return count;
}

} // namespace

PosixSerialControl::~PosixSerialControl()
{
    Close();
}

std::optional<PortFault> PosixSerialControl::Open(const PortDevice& device, const LineSettings& line)
{
    Close();
    in_.Reset(line.inBufferSize);
    FileDescriptor opened;
    if (auto fault = OpenLine(device.path, opened))
        return fault;
    if (auto fault = ApplyLineSettings(opened, line))
        return fault;
    // Besides the lock: other programs ask the line itself. It does not hold back root, so it may fail.
    ::ioctl(opened.Get(), TIOCEXCL);
    line_ = std::move(opened);
    DropWhatTheSystemHolds();
    return std::nullopt;
}

void PosixSerialControl::Close()
{
    if (!IsOpen())
        return;
    CloseLine();
    in_.Clear();
}

void PosixSerialControl::CloseLine()
{
    // In this order nothing is left that close() could wait for: bytes on their way are dropped, and those
    // that a chip still holds leave it without being asked for.
    ::tcflush(line_.Get(), TCIOFLUSH);
    ReleaseHandshaking(line_);
    // A pseudo-terminal that someone else keeps open would stay closed to everybody.
    ::ioctl(line_.Get(), TIOCNXCL);
    line_.Close();
    out_.clear();
}

int PosixSerialControl::InBufferCount()
{
    Service();
    return in_.Count();
}

void PosixSerialControl::ClearInBuffer()
{
    in_.Clear();
    if (IsOpen())
        DropWhatTheSystemHolds();
}

void PosixSerialControl::SetInputLen(int length)
{
    in_.SetLength(length);
}

std::string PosixSerialControl::Input()
{
    Service();
    return in_.Take();
}

bool PosixSerialControl::Output(std::string_view text)
{
    if (IsOpen())
        SendWaiting();
    if (!IsOpen() || text.size() > kOutCapacity - out_.size())
        return false;
    out_ += text;
    SendWaiting();
    return IsOpen();
}

void PosixSerialControl::Service()
{
    if (IsOpen())
        TakeIn(); // before sending: a loss that the sending notices must not cost bytes that are there
    if (IsOpen())
        SendWaiting();
}

void PosixSerialControl::TakeIn()
{
    std::array<char, kReadSize> bytes;
    while (in_.Room() > 0) {
        const std::size_t room = std::min(bytes.size(), in_.Room());
        const ssize_t count = ReadOnce(line_.Get(), bytes.data(), room);
        if (count > 0) {
            in_.Append({bytes.data(), static_cast<std::size_t>(count)});
            continue;
        }
        if (count == 0 || !NothingNow(errno))
            CloseLine();
        return;
    }
    NoticeHangUp();
}

void PosixSerialControl::NoticeHangUp()
{
    pollfd state{line_.Get(), 0, 0};
    if (::poll(&state, 1, 0) > 0 && (state.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0)
        CloseLine();
}

void PosixSerialControl::SendWaiting()
{
    while (!out_.empty()) {
        const ssize_t count = ::write(line_.Get(), out_.data(), out_.size());
        if (count > 0) {
            out_.erase(0, static_cast<std::size_t>(count));
            continue;
        }
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 && !NothingNow(errno))
            CloseLine();
        return;
    }
}

void PosixSerialControl::DropWhatTheSystemHolds()
{
    // The flush empties the line but not what its driver keeps when the line is full, so it is read away
    // first.
    std::array<char, kReadSize> bytes;
    for (int reads = 0; reads < kMostReadsToEmptyTheSystem; ++reads) {
        const ssize_t count = ReadOnce(line_.Get(), bytes.data(), bytes.size());
        if (count > 0)
            continue;
        if (count == 0 || !NothingNow(errno)) {
            CloseLine();
            return;
        }
        break;
    }
    if (::tcflush(line_.Get(), TCIFLUSH) != 0)
        CloseLine();
}

} // namespace quorvane
