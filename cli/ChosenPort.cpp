#include "cli/ChosenPort.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace quorvane {

bool IsComName(const std::string& port)
{
    constexpr std::string_view kPrefix = "COM";
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return port.size() > kPrefix.size() &&
           std::equal(kPrefix.begin(), kPrefix.end(), port.begin(),
                      [&](char a, char b) { return a == upper(b); }) &&
           std::all_of(port.begin() + kPrefix.size(), port.end(),
                       [](char c) { return c >= '0' && c <= '9'; });
}

void ApplyPort(const std::string& port, PortSettings& settings)
{
    if (IsComName(port))
        settings.RsPort = "COM" + port.substr(3);
    else if (!port.empty())
        settings.RsPort = port;
}

ChosenPort::ChosenPort(const PortNames& system, std::string port) : system_(system), port_(std::move(port)) {}

std::optional<PortDevice> ChosenPort::Device(int commPort) const
{
    return port_.empty() || IsComName(port_) ? system_.Device(commPort) : PortDevice{port_};
}

bool ChosenPort::Present(const PortDevice& device) const
{
    return system_.Present(device);
}

} // namespace quorvane
