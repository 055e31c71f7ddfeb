#include "platform/windows/WindowsPortNames.h"

#include "platform/windows/WideText.h"

#include <array>
#include <string_view>
#include <windows.h>

namespace quorvane {
namespace {

constexpr std::string_view kDeviceFolder = R"(\\.\)";

} // namespace

std::optional<PortDevice> WindowsPortNames::Device(int commPort) const
{
    if (commPort < kFirstComPort || commPort > kLastComPort)
        return std::nullopt;
    return PortDevice{std::string(kDeviceFolder) + "COM" + std::to_string(commPort)};
}

bool WindowsPortNames::Present(const PortDevice& device) const
{
    std::string_view name = device.path;
    if (name.starts_with(kDeviceFolder))
        name.remove_prefix(kDeviceFolder.size());
    std::array<wchar_t, MAX_PATH> target{};
    const DWORD length =
        ::QueryDosDeviceW(Wide(name).c_str(), target.data(), static_cast<DWORD>(target.size()));
    return length != 0 || ::GetLastError() == ERROR_INSUFFICIENT_BUFFER; // there, with a long name of its own
}

} // namespace quorvane
