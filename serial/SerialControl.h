#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// A device as the system names it: "/dev/ttyUSB0", "\\.\COM3".
struct PortDevice {
    std::string path;
};

enum class Parity { None, Even, Odd };
enum class StopBits { One, OneAndHalf, Two };
enum class Handshaking { None, XonXoff, RtsCts, RtsCtsXonXoff };

/// How the line is run.
struct LineSettings {
    unsigned speed = 38400; ///< bits per second
    Parity parity = Parity::None;
    unsigned dataBits = 8; ///< 7 or 8
    StopBits stopBits = StopBits::One;
    Handshaking handshaking = Handshaking::RtsCts;
    std::size_t inBufferSize = 10240; ///< bytes kept until they are read
};

enum class PortFaultKind {
    Absent,       ///< no such device
    Busy,         ///< another program has it
    NoPermission, ///< the user may not open it
    NotALine,     ///< there is a device, and it does not answer as a serial line
    Unsupported,  ///< the system or the device cannot do these line settings
    Other,
};

/// Why a port could not be opened.
struct PortFault {
    PortFaultKind kind = PortFaultKind::Other;
    std::string systemReason; ///< in the system's words or the control's, UTF-8
    std::string group{}; ///< `NoPermission`: whose members may use the device; empty when joining none helps
};

/// The serial-port control: line settings, polled reception, text in and out. Nothing here blocks.
class SerialControl {
public:
    virtual ~SerialControl() = default;
    /// Opens `device` for this program alone, with `line` and an empty buffer, `InputLen` 0.
    /// @return why not, or nothing when it is open
    [[nodiscard]] virtual std::optional<PortFault> Open(const PortDevice& device,
                                                        const LineSettings& line) = 0;
    /// Gives up what waits to be sent. Closing a closed port does nothing.
    virtual void Close() = 0;
    /// False from the moment the loss of the device is noticed; it is closed then and stays closed.
    [[nodiscard]] virtual bool IsOpen() const = 0;
    /// Bytes received and not yet read; takes in what has arrived and notices a loss. What was received
    /// before a loss can still be read.
    [[nodiscard]] virtual int InBufferCount() = 0;
    virtual void ClearInBuffer() = 0;
    /// How many characters one read delivers; 0 = everything waiting.
    virtual void SetInputLen(int length) = 0;
    /// One read: `InputLen` characters, or nothing while fewer are waiting.
    [[nodiscard]] virtual std::string Input() = 0;
    /// Queues `text` for sending. What the other side's handshake holds back is sent on later calls.
    /// @return false when the text was not taken (port lost, or too much is waiting to be sent)
    [[nodiscard]] virtual bool Output(std::string_view text) = 0;
};

} // namespace quorvane
