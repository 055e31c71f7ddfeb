#pragma once

#include "serial/PortDescriptions.h"

namespace quorvane {

/// Asks the system's list of devices.
class WindowsPortDescriptions final : public PortDescriptions {
public:
    [[nodiscard]] PortDescription Describe(const PortDevice& device) const override;
};

} // namespace quorvane
