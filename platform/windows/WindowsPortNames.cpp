#include "platform/windows/WindowsPortNames.h"

namespace quorvane {

std::optional<PortDevice> WindowsPortNames::Device(int commPort) const
{
    if (commPort < kFirstComPort || commPort > kLastComPort)
        return std::nullopt;
    return PortDevice{R"(\\.\COM)" + std::to_string(commPort)};
}

} // namespace quorvane
