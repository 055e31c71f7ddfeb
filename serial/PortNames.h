#pragma once

#include "serial/SerialControl.h"

#include <optional>

namespace quorvane {

/// The COM names that the program knows: COM1 to COM15.
inline constexpr int kFirstComPort = 1;
inline constexpr int kLastComPort = 15;

/// Which device stands behind a port number.
class PortNames {
public:
    virtual ~PortNames() = default;
    /// @return the device of COM`commPort`, or nothing for a number that no device can have
    [[nodiscard]] virtual std::optional<PortDevice> Device(int commPort) const = 0;
    /// Whether there is a device of that name. Looks only: a port in use is not disturbed.
    [[nodiscard]] virtual bool Present(const PortDevice& device) const = 0;
};

/// Tries whether ports can be used.
class PortProbe {
public:
    virtual ~PortProbe() = default;
    /// Opens and closes the device with no sharing. @return why it cannot be used, or nothing when it can
    [[nodiscard]] virtual std::optional<PortFault> Probe(const PortDevice& device) const = 0;
};

} // namespace quorvane
