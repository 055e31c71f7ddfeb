#pragma once

#include "app/Texts.h"
#include "serial/PortScan.h"

#include <string>
#include <vector>

namespace quorvane {

/// What a device says of itself, on one line: "FTDI, FT232R USB UART, serial number A50285BI"; empty when it
/// says nothing.
[[nodiscard]] std::string DescriptionText(const PortDescription& description, const Texts& texts);

/// The system's name of the device, unless it is the port's own, and the description.
[[nodiscard]] std::string DeviceText(const FoundPort& port, const Texts& texts);

/// What an operator has to know to choose a port, one text each: first of `rsPort`, which device it is and
/// why it cannot be used, then of the other ports that are busy or not permitted. A socket without a line
/// behind it is told of only when it is `rsPort`: a mainboard may have many.
/// @param ports  as `ScanPorts` found them
[[nodiscard]] std::vector<std::string> PortNotes(const std::vector<FoundPort>& ports,
                                                 const std::string& rsPort, const Texts& texts);

} // namespace quorvane
