#pragma once

#include "platform/windows/Handle.h"
#include "serial/ReceiveBuffer.h"
#include "serial/SerialControl.h"

#include <memory>

namespace quorvane {

/// The serial control over the system's communication calls.
///
/// Received bytes are taken into a buffer of `LineSettings::inBufferSize`; when it is full they stay with the
/// system, whose handshaking then holds the other side back. At most `kOutCapacity` bytes wait to be sent:
/// one overlapped write is under way at a time, and what comes meanwhile is queued. Any failing call is a
/// loss.
class WindowsSerialControl final : public SerialControl {
public:
    static constexpr std::size_t kOutCapacity = 4096;

    WindowsSerialControl();
    ~WindowsSerialControl() override;
    WindowsSerialControl(const WindowsSerialControl&) = delete;
    WindowsSerialControl& operator=(const WindowsSerialControl&) = delete;

    [[nodiscard]] std::optional<PortFault> Open(const PortDevice& device, const LineSettings& line) override;
    void Close() override;
    [[nodiscard]] bool IsOpen() const override { return line_.IsOpen(); }
    [[nodiscard]] int InBufferCount() override;
    void ClearInBuffer() override;
    void SetInputLen(int length) override;
    [[nodiscard]] std::string Input() override;
    [[nodiscard]] bool Output(std::string_view text) override;

private:
    struct Transfer;
    enum class ReadOutcome { Taken, Nothing, Lost };

    void Service();
    void TakeIn();
    [[nodiscard]] ReadOutcome ReadBlock(std::size_t size);
    void SendWaiting();
    [[nodiscard]] std::size_t WaitingToBeSent() const;
    void CloseLine();

    Handle line_;
    std::unique_ptr<Transfer> write_;
    ReceiveBuffer in_;
    std::string out_;
};

} // namespace quorvane
