#pragma once

#include "serial/PortNames.h"

namespace quorvane {

/// COM1 to COM4 are ttyS0 to ttyS3, COM5 to COM9 ttyUSB0 to ttyUSB4, COM10 to COM14 ttyACM0 to ttyACM4. An
/// environment variable QUORVANE_COM1 to QUORVANE_COM15 names any other device; COM15 has none without it.
class PosixPortNames final : public PortNames {
public:
    [[nodiscard]] std::optional<PortDevice> Device(int commPort) const override;
    [[nodiscard]] bool Present(const PortDevice& device) const override;
};

} // namespace quorvane
