#pragma once

#include "serial/SerialControl.h"

#include <string>

namespace quorvane {

/// What a device says of itself, UTF-8; empty what it does not say.
struct PortDescription {
    std::string maker;
    std::string product;
    std::string serialNumber;
    std::string place{};   ///< where it is plugged in: the same socket has the same place
    std::string channel{}; ///< which of the device's ports it is, wherever that is plugged in
    friend bool operator==(const PortDescription&, const PortDescription&) = default;
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
