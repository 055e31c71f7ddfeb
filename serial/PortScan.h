#pragma once

#include "serial/PortDescriptions.h"
#include "serial/PortNames.h"

#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// A port with a device behind it.
struct FoundPort {
    int number = 0;
    std::string name; ///< "COM5"
    PortDevice device;
    PortDescription description{};
    std::optional<PortFault> fault{}; ///< why it cannot be used, or nothing when it can
};

/// Tries COM1 to COM15 in this order. A port whose device is absent is left out.
[[nodiscard]] std::vector<FoundPort> ScanPorts(const PortNames& names, const PortProbe& probe,
                                               const PortDescriptions& descriptions);

/// The names of those that can be used, in their order: what a list of ports offers.
[[nodiscard]] std::vector<std::string> UsablePorts(const std::vector<FoundPort>& ports);

} // namespace quorvane
