#pragma once

#include "serial/SerialControl.h"

#include <string>

namespace quorvane {

/// What a device says of itself, UTF-8; empty what it does not say.
struct PortDescription {
    std::string maker;
    std::string product;
    std::string serialNumber;
};

/// Tells by what an operator can recognise a port.
class PortDescriptions {
public:
    virtual ~PortDescriptions() = default;
    /// Asks the system, not the device: a port in use is not disturbed. A device that is absent, or of which
    /// the system knows nothing, has an empty description.
    [[nodiscard]] virtual PortDescription Describe(const PortDevice& device) const = 0;
};

} // namespace quorvane
