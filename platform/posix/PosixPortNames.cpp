#include "platform/posix/PosixPortNames.h"

#include "platform/Platform.h"

#include <sys/stat.h>

namespace quorvane {
namespace {

struct DeviceRow {
    int firstPort;
    int lastPort;
    const char* pathStem;
};

constexpr DeviceRow kDevices[] = {
    {1, 4, "/dev/ttyS"},
    {5, 9, "/dev/ttyUSB"},
    {10, 14, "/dev/ttyACM"},
};

} // namespace

std::optional<PortDevice> PosixPortNames::Device(int commPort) const
{
    if (commPort < kFirstComPort || commPort > kLastComPort)
        return std::nullopt;
    const auto named = EnvironmentText("QUORVANE_COM" + std::to_string(commPort));
    if (named && !named->empty())
        return PortDevice{*named};
    for (const DeviceRow& row : kDevices) {
        if (commPort >= row.firstPort && commPort <= row.lastPort)
            return PortDevice{row.pathStem + std::to_string(commPort - row.firstPort)};
    }
    return std::nullopt;
}

bool PosixPortNames::Present(const PortDevice& device) const
{
    struct stat facts {};
    return ::stat(device.path.c_str(), &facts) == 0;
}

} // namespace quorvane
