#include "platform/posix/PosixPortProbe.h"

#include "platform/posix/SerialLine.h"

namespace quorvane {

std::optional<PortFault> PosixPortProbe::Probe(const PortDevice& device) const
{
    FileDescriptor line;
    return OpenLine(device.path, line);
}

} // namespace quorvane
