#include "serial/PortScan.h"

#include <utility>

namespace quorvane {

std::vector<FoundPort> ScanPorts(const PortNames& names, const PortProbe& probe,
                                 const PortDescriptions& descriptions)
{
    std::vector<FoundPort> ports;
    for (int number = kFirstComPort; number <= kLastComPort; ++number) {
        const auto device = names.Device(number);
        if (!device)
            continue;
        auto fault = probe.Probe(*device);
        if (fault && fault->kind == PortFaultKind::Absent)
            continue;
        ports.push_back({.number = number,
                         .name = "COM" + std::to_string(number),
                         .device = *device,
                         .description = descriptions.Describe(*device),
                         .fault = std::move(fault)});
    }
    return ports;
}

std::vector<std::string> UsablePorts(const std::vector<FoundPort>& ports)
{
    std::vector<std::string> usable;
    for (const FoundPort& port : ports)
        if (!port.fault)
            usable.push_back(port.name);
    return usable;
}

} // namespace quorvane
