#include "simulator/DeviceLink.h"

#include <system_error>

namespace quorvane {

DeviceLink::~DeviceLink()
{
    std::error_code error;
    if (!device_.empty() && std::filesystem::read_symlink(path_, error) == device_)
        std::filesystem::remove(path_, error);
}

std::optional<std::string> DeviceLink::PointTo(const std::string& device)
{
    std::error_code error;
    const auto kind = std::filesystem::symlink_status(path_, error).type();
    if (kind == std::filesystem::file_type::symlink)
        std::filesystem::remove(path_, error);
    else if (kind != std::filesystem::file_type::not_found)
        return path_.string() + " exists and is not a symbolic link";
    std::filesystem::create_symlink(device, path_, error);
    if (error)
        return path_.string() + ": " + error.message();
    device_ = device;
    return std::nullopt;
}

} // namespace quorvane
