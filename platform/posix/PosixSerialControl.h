#pragma once

#include "platform/posix/FileDescriptor.h"
#include "serial/ReceiveBuffer.h"
#include "serial/SerialControl.h"

namespace quorvane {

/// The serial control over termios.
///
/// Received bytes are taken into a buffer of `LineSettings::inBufferSize`; when it is full they stay with the
/// system, whose handshaking then holds the other side back. At most `kOutCapacity` bytes wait to be sent.
class PosixSerialControl final : public SerialControl {
public:
    static constexpr std::size_t kOutCapacity = 4096;

    PosixSerialControl() = default;
    ~PosixSerialControl() override;
    PosixSerialControl(const PosixSerialControl&) = delete;
    PosixSerialControl& operator=(const PosixSerialControl&) = delete;

    [[nodiscard]] std::optional<PortFault> Open(const PortDevice& device, const LineSettings& line) override;
    void Close() override;
    [[nodiscard]] bool IsOpen() const override { return line_.IsOpen(); }
    [[nodiscard]] int InBufferCount() override;
    void ClearInBuffer() override;
    void SetInputLen(int length) override;
    [[nodiscard]] std::string Input() override;
    [[nodiscard]] bool Output(std::string_view text) override;

private:
    void Service();
    void TakeIn();
    void SendWaiting();
    void DropWhatTheSystemHolds();
    void NoticeHangUp();
    void CloseLine();

    FileDescriptor line_;
    ReceiveBuffer in_;
    std::string out_;
};

} // namespace quorvane
