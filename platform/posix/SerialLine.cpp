#include "platform/posix/SerialLine.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <grp.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <utility>

namespace quorvane {
namespace {

struct SpeedCode {
    unsigned bitsPerSecond;
    speed_t code;
};

constexpr SpeedCode kSpeeds[] = {
    {1200, B1200},   {1800, B1800},   {2400, B2400},   {4800, B4800},     {9600, B9600},
    {19200, B19200}, {38400, B38400}, {57600, B57600}, {115200, B115200},
};

PortFault PortFaultOf(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENODEV:
    case ENXIO:
        return {PortFaultKind::Absent, ReasonOf(error)};
    case EBUSY:
        return {PortFaultKind::Busy, ReasonOf(error)};
    case EWOULDBLOCK: // the lock is taken; in the system's words that would be "temporarily unavailable"
        return {PortFaultKind::Busy, ReasonOf(EBUSY)};
    case EACCES:
    case EPERM:
        return {PortFaultKind::NoPermission, ReasonOf(error)};
    case ENOTTY:
    case EISDIR:
    case EINVAL:
    case EIO: // a serial port of the mainboard without a chip behind it
        return {PortFaultKind::NotALine, ReasonOf(error)};
    default:
        return {PortFaultKind::Other, ReasonOf(error)};
    }
}

PortFault Unsupported(std::string reason)
{
    return {PortFaultKind::Unsupported, std::move(reason)};
}

std::optional<speed_t> CodeOf(unsigned bitsPerSecond)
{
    for (const SpeedCode& speed : kSpeeds) {
        if (speed.bitsPerSecond == bitsPerSecond)
            return speed.code;
    }
    return std::nullopt;
}

/// The group that owns the device, when its members may read and write it. Root's group is none to join.
std::string GroupThatMayUse(const std::string& path)
{
    constexpr mode_t kReadAndWrite = S_IRGRP | S_IWGRP;
    struct stat facts {};
    if (::stat(path.c_str(), &facts) != 0 || (facts.st_mode & kReadAndWrite) != kReadAndWrite ||
        facts.st_gid == 0)
        return {};
    group entry{};
    group* found = nullptr;
    std::array<char, 65536> names{}; // its members' names, too
    ::getgrgid_r(facts.st_gid, &entry, names.data(), names.size(), &found);
    return found != nullptr ? found->gr_name : "";
}

void SetRaw(termios& mode)
{
    ::cfmakeraw(&mode);
    mode.c_cflag |= CLOCAL | CREAD;
    // With at least one byte asked for, read() tells "nothing there" (EAGAIN) from a hang-up (0).
    mode.c_cc[VMIN] = 1;
    mode.c_cc[VTIME] = 0;
}

constexpr tcflag_t kFrameFlags = CSIZE | CSTOPB | PARENB | PARODD;

void SetFrame(termios& mode, const LineSettings& settings)
{
    mode.c_cflag &= ~kFrameFlags;
    mode.c_cflag |= settings.dataBits == 7 ? CS7 : CS8;
    if (settings.stopBits == StopBits::Two)
        mode.c_cflag |= CSTOPB;
    if (settings.parity != Parity::None) {
        mode.c_cflag |= PARENB;
        mode.c_iflag |= INPCK;
    }
    if (settings.parity == Parity::Odd)
        mode.c_cflag |= PARODD;
}

void SetHandshaking(termios& mode, Handshaking handshaking)
{
    const bool byCharacters =
        handshaking == Handshaking::XonXoff || handshaking == Handshaking::RtsCtsXonXoff;
    const bool byLines = handshaking == Handshaking::RtsCts || handshaking == Handshaking::RtsCtsXonXoff;
    mode.c_iflag &= ~static_cast<tcflag_t>(IXON | IXOFF | IXANY);
    if (byCharacters)
        mode.c_iflag |= IXON | IXOFF;
    mode.c_cflag &= ~static_cast<tcflag_t>(CRTSCTS);
    if (byLines)
        mode.c_cflag |= CRTSCTS;
}

// tcsetattr reports success when it could do any part of it, so the frame is read back. A line without modem
// lines is virtual and has no frame: it keeps what it likes.
bool FrameWasTaken(int fd, const termios& wanted)
{
    int modemLines = 0;
    if (::ioctl(fd, TIOCMGET, &modemLines) != 0)
        return true;
    termios taken{};
    return ::tcgetattr(fd, &taken) == 0 && (taken.c_cflag & kFrameFlags) == (wanted.c_cflag & kFrameFlags);
}

} // namespace

std::optional<PortFault> OpenLine(const std::string& path, FileDescriptor& line)
{
    FileDescriptor opened = OpenDescriptor(path, O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (!opened.IsOpen()) {
        PortFault fault = PortFaultOf(errno);
        if (fault.kind == PortFaultKind::NoPermission)
            fault.group = GroupThatMayUse(path);
        return fault;
    }
    termios mode{};
    if (::tcgetattr(opened.Get(), &mode) != 0)
        return PortFaultOf(errno);
    if (::flock(opened.Get(), LOCK_EX | LOCK_NB) != 0)
        return PortFaultOf(errno);
    line = std::move(opened);
    return std::nullopt;
}

std::optional<PortFault> ApplyLineSettings(const FileDescriptor& line, const LineSettings& settings)
{
    const std::optional<speed_t> speed = CodeOf(settings.speed);
    if (!speed)
        return Unsupported("A line speed of " + std::to_string(settings.speed) +
                           " bits per second is not supported.");
    if (settings.dataBits != 7 && settings.dataBits != 8)
        return Unsupported(std::to_string(settings.dataBits) + " data bits are not supported.");
    if (settings.stopBits == StopBits::OneAndHalf)
        return Unsupported("This system has no 1.5 stop bits.");
    termios mode{};
    if (::tcgetattr(line.Get(), &mode) != 0)
        return PortFaultOf(errno);
    SetRaw(mode);
    SetFrame(mode, settings);
    SetHandshaking(mode, settings.handshaking);
    ::cfsetispeed(&mode, *speed);
    ::cfsetospeed(&mode, *speed);
    int result = 0;
    do
        result = ::tcsetattr(line.Get(), TCSANOW, &mode);
    while (result != 0 && errno == EINTR);
    if (result != 0 && errno == EINVAL)
        return Unsupported(ReasonOf(EINVAL));
    if (result != 0)
        return PortFaultOf(errno);
    if (!FrameWasTaken(line.Get(), mode))
        return Unsupported("The device does not take these data bits, parity and stop bits.");
    return std::nullopt;
}

void ReleaseHandshaking(const FileDescriptor& line)
{
    termios mode{};
    if (::tcgetattr(line.Get(), &mode) != 0)
        return;
    SetHandshaking(mode, Handshaking::None);
    ::tcsetattr(line.Get(), TCSANOW, &mode);
}

} // namespace quorvane
