#include "platform/DeviceIdText.h"

namespace quorvane {

std::string_view WithoutPortName(std::string_view friendlyName, std::string_view portName)
{
    if (!friendlyName.ends_with(')'))
        return friendlyName;
    std::string_view name = friendlyName.substr(0, friendlyName.size() - 1);
    if (!name.ends_with(portName))
        return friendlyName;
    name.remove_suffix(portName.size());
    if (!name.ends_with(" ("))
        return friendlyName;
    name.remove_suffix(2);
    return name;
}

std::string_view SerialNumberIn(std::string_view instanceId)
{
    if (!instanceId.starts_with("USB\\"))
        return {};
    const std::string_view piece = instanceId.substr(instanceId.rfind('\\') + 1);
    return piece.find('&') == std::string_view::npos ? piece : std::string_view();
}

bool BelongsToDeviceAbove(std::string_view instanceId)
{
    return instanceId.starts_with("FTDIBUS\\") || instanceId.find("&MI_") != std::string_view::npos;
}

std::string_view ChannelIn(std::string_view instanceId)
{
    constexpr std::size_t kLength = std::string_view("MI_00").size();
    if (!BelongsToDeviceAbove(instanceId))
        return {};
    const std::size_t at = instanceId.find("&MI_");
    return at == std::string_view::npos ? instanceId : instanceId.substr(at + 1, kLength);
}

} // namespace quorvane
