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
    return {LineOf(usb / "manufacturer"), LineOf(usb / "product"), LineOf(usb / "serial")};
}

} // namespace quorvane
