#include "simulator/DeviceLink.h"

#include <system_error>

namespace quorvane {
namespace {

/// A link that an earlier program has left: to a virtual serial line, or to one that is gone.
bool IsLeftOver(const std::filesystem::path& link)
{
    std::error_code error;
    const auto device = std::filesystem::read_symlink(link, error);
    return !std::filesystem::exists(link, error) || device.parent_path() == "/dev/pts";
}

} // namespace

void DeviceLink::Remove()
{
    std::error_code error;
    if (!device_.empty() && std::filesystem::read_symlink(path_, error) == device_)
        std::filesystem::remove(path_, error);
}

std::optional<std::string> DeviceLink::PointTo(const std::string& device)
{
    std::error_code error;
    const auto kind = std::filesystem::symlink_status(path_, error).type();
    if (kind == std::filesystem::file_type::symlink && IsLeftOver(path_))
        std::filesystem::remove(path_, error);
    else if (kind != std::filesystem::file_type::not_found)
        return path_.string() + ": " +
               (error ? error.message() : "exists and is no link to a virtual serial line");
    std::filesystem::create_symlink(device, path_, error);
    if (error)
        return path_.string() + ": " + error.message();
    device_ = device;
    return std::nullopt;
}

} // namespace quorvane
