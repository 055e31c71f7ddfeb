#pragma once

#include "serial/PortNames.h"

namespace quorvane {

/// COMn is the device "\\.\COMn".
class WindowsPortNames final : public PortNames {
public:
    [[nodiscard]] std::optional<PortDevice> Device(int commPort) const override;
    [[nodiscard]] bool Present(const PortDevice& device) const override;
};

} // namespace quorvane
