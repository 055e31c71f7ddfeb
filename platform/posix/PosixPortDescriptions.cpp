#include "platform/posix/PosixPortDescriptions.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// The folder of the USB device that `interface`, a folder of the kernel's, belongs to; empty when it belongs
/// to none.
fs::path UsbDeviceAbove(fs::path interface)
{
    std::error_code error;
    while (interface.has_relative_path()) {
        if (fs::exists(interface / "idVendor", error))
            return interface;
        interface = interface.parent_path();
    }
    return {};
}

/// The only line of a file of the kernel's; empty when there is none.
std::string LineOf(const fs::path& path)
{
    std::string line;
    std::ifstream file(path);
    std::getline(file, line);
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

/// "1.0" of interface "1-2:1.0"; with "/1" behind it when the interface has ports that are counted, this one
/// being 1.
std::string ChannelOf(const fs::path& usb, const fs::path& port)
{
    std::string channel;
    const std::string stem = usb.filename().string() + ":";
    for (fs::path folder = port; folder != usb && folder.has_relative_path(); folder = folder.parent_path())
        if (const std::string name = folder.filename().string(); name.starts_with(stem))
            channel = name.substr(stem.size());
    if (const std::string number = LineOf(port / "port_number"); !number.empty())
        channel.append("/").append(number);
    return channel;
}

} // namespace

PortDescription PosixPortDescriptions::Describe(const PortDevice& device) const
{
    std::error_code error;
    const fs::path node = fs::canonical(device.path, error); // it may be named by a link
    if (error)
        return {};
    const fs::path interface = fs::canonical(fs::path(folder_) / node.filename() / "device", error);
    const fs::path usb = error ? fs::path() : UsbDeviceAbove(interface);
    if (usb.empty())
        return {};
    return {LineOf(usb / "manufacturer"), LineOf(usb / "product"), LineOf(usb / "serial"),
            usb.filename().string(), ChannelOf(usb, interface)};
}

} // namespace quorvane
