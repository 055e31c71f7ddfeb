#include "platform/windows/WindowsPortProbe.h"

#include "platform/windows/WindowsSerialLine.h"

namespace quorvane {

std::optional<PortFault> WindowsPortProbe::Probe(const PortDevice& device) const
{
    Handle line;
    return OpenLine(device.path, line);
}

} // namespace quorvane
