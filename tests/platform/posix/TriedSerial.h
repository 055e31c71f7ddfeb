#pragma once

#include "serial/PortNames.h"
#include "serial/SerialControl.h"

#include <memory>

namespace quorvane {

/// Whether the environment names a Windows program whose serial control is tried instead of this system's:
/// QUORVANE_WINDOWS_SERIAL (its file), QUORVANE_WINDOWS_RUNNER (what runs it), QUORVANE_WINDOWS_PORT (the
/// number of the COM port that it is to use) and QUORVANE_WINE (the runner's folder).
[[nodiscard]] bool TriesWindows();

/// The serial control that the tests try.
class TriedControl final : public SerialControl {
public:
    TriedControl();

    [[nodiscard]] std::optional<PortFault> Open(const PortDevice& device, const LineSettings& line) override
    {
        return tried_->Open(device, line);
    }
    void Close() override { tried_->Close(); }
    [[nodiscard]] bool IsOpen() const override { return tried_->IsOpen(); }
    [[nodiscard]] int InBufferCount() override { return tried_->InBufferCount(); }
    void ClearInBuffer() override { tried_->ClearInBuffer(); }
    void SetInputLen(int length) override { tried_->SetInputLen(length); }
    [[nodiscard]] std::string Input() override { return tried_->Input(); }
    [[nodiscard]] bool Output(std::string_view text) override { return tried_->Output(text); }

private:
    std::unique_ptr<SerialControl> tried_;
};

/// The port probe that the tests try.
class TriedProbe final : public PortProbe {
public:
    [[nodiscard]] std::optional<PortFault> Probe(const PortDevice& device) const override;
};

/// What a control of either system holds of what waits to be sent.
inline constexpr std::size_t kOutCapacity = 4096;

} // namespace quorvane
