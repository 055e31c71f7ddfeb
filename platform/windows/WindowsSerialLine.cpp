#include "platform/windows/WindowsSerialLine.h"

#include "platform/windows/WideText.h"

#include <algorithm>
#include <utility>

namespace quorvane {
namespace {

constexpr char kXon = 0x11;
constexpr char kXoff = 0x13;

PortFault FaultOf(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_INVALID_NAME:
        return {PortFaultKind::Absent, ReasonOf(error)};
    case ERROR_ACCESS_DENIED: // what a line that another program holds gives
    case ERROR_SHARING_VIOLATION:
        return {PortFaultKind::Busy, ReasonOf(error)};
    case ERROR_INVALID_FUNCTION:
    case ERROR_INVALID_HANDLE:
    case ERROR_NOT_SUPPORTED:
        return {PortFaultKind::NotALine, ReasonOf(error)};
    default:
        return {PortFaultKind::Other, ReasonOf(error)};
    }
}

void SetFrame(DCB& mode, const LineSettings& settings)
{
    mode.BaudRate = settings.speed;
    mode.ByteSize = static_cast<BYTE>(settings.dataBits);
    mode.fParity = settings.parity != Parity::None;
    mode.Parity = settings.parity == Parity::Even  ? EVENPARITY
                  : settings.parity == Parity::Odd ? ODDPARITY
                                                   : NOPARITY;
    mode.StopBits = settings.stopBits == StopBits::One   ? ONESTOPBIT
                    : settings.stopBits == StopBits::Two ? TWOSTOPBITS
                                                         : ONE5STOPBITS;
}

void SetHandshaking(DCB& mode, const LineSettings& settings)
{
    const bool byCharacters =
        settings.handshaking == Handshaking::XonXoff || settings.handshaking == Handshaking::RtsCtsXonXoff;
    const bool byLines =
        settings.handshaking == Handshaking::RtsCts || settings.handshaking == Handshaking::RtsCtsXonXoff;
    mode.fOutxCtsFlow = byLines;
    mode.fRtsControl = byLines ? RTS_CONTROL_HANDSHAKE : RTS_CONTROL_ENABLE;
    mode.fOutX = byCharacters;
    mode.fInX = byCharacters;
    mode.fTXContinueOnXoff = FALSE;
    mode.XonChar = kXon;
    mode.XoffChar = kXoff;
    // The other side is held back while a quarter of the system's buffer is still free.
    const auto quarter = static_cast<WORD>(std::min<std::size_t>(settings.inBufferSize / 4, 0x7FFF));
    mode.XonLim = quarter;
    mode.XoffLim = quarter;
}

} // namespace

std::optional<PortFault> OpenLine(const std::string& path, Handle& line)
{
    Handle opened(::CreateFileW(Wide(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                FILE_FLAG_OVERLAPPED, nullptr));
    if (!opened.IsOpen())
        return FaultOf(::GetLastError());
    DCB mode{};
    mode.DCBlength = sizeof mode;
    if (!::GetCommState(opened.Get(), &mode))
        return PortFault{PortFaultKind::NotALine, ReasonOf(::GetLastError())};
    line = std::move(opened);
    return std::nullopt;
}

void SetMode(DCB& mode, const LineSettings& settings)
{
    mode.fBinary = TRUE;
    mode.fOutxDsrFlow = FALSE;
    mode.fDsrSensitivity = FALSE;
    mode.fDtrControl = DTR_CONTROL_ENABLE;
    mode.fErrorChar = FALSE;
    mode.fNull = FALSE;
    mode.fAbortOnError = FALSE; // a parity error must not stop all reading and writing
    SetFrame(mode, settings);
    SetHandshaking(mode, settings);
}

std::optional<PortFault> ApplyLineSettings(const Handle& line, const LineSettings& settings,
                                           std::size_t outBufferSize)
{
    DCB mode{};
    mode.DCBlength = sizeof mode;
    if (!::SetupComm(line.Get(), static_cast<DWORD>(settings.inBufferSize),
                     static_cast<DWORD>(outBufferSize)) ||
        !::GetCommState(line.Get(), &mode))
        return FaultOf(::GetLastError());
    SetMode(mode, settings);
    if (!::SetCommState(line.Get(), &mode))
        return PortFault{PortFaultKind::Unsupported, ReasonOf(::GetLastError())};
    COMMTIMEOUTS atOnce{};
    atOnce.ReadIntervalTimeout = MAXDWORD; // with the other two at 0: read what is there and return
    if (!::SetCommTimeouts(line.Get(), &atOnce))
        return FaultOf(::GetLastError());
    return std::nullopt;
}

void EndHandshaking(const Handle& line)
{
    DCB mode{};
    mode.DCBlength = sizeof mode;
    if (!::GetCommState(line.Get(), &mode))
        return;
    mode.fOutX = FALSE;
    mode.fInX = FALSE;
    mode.fOutxCtsFlow = FALSE;
    mode.fRtsControl = RTS_CONTROL_ENABLE;
    ::SetCommState(line.Get(), &mode);
}

} // namespace quorvane
