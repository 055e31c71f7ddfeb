#include "platform/windows/WindowsPortDescriptions.h"

#include "platform/DeviceIdText.h"
#include "platform/windows/WideText.h"

#include <array>
#include <optional>
#include <string>

// The others do not compile before the first.
// clang-format off
#include <windows.h>
#include <cfgmgr32.h>
#include <setupapi.h>
// clang-format on

namespace quorvane {
namespace {

// Written out: the headers that name them want another header to be included in a certain way before them.
constexpr GUID kPortsClass = {0x4D36E978, 0xE325, 0x11CE, {0xBF, 0xC1, 0x08, 0x00, 0x2B, 0xE1, 0x03, 0x18}};
constexpr GUID kComPortInterface = {
    0x86E0D1E0, 0x8089, 0x11D0, {0x9C, 0xE4, 0x08, 0x00, 0x3E, 0x30, 0x1F, 0x73}};

using Characters = std::array<wchar_t, 512>;

/// Owns a list of devices.
class DeviceList {
public:
    DeviceList(const GUID& kind, DWORD flags) : list_(::SetupDiGetClassDevsW(&kind, nullptr, nullptr, flags))
    {
    }
    ~DeviceList()
    {
        if (list_ != INVALID_HANDLE_VALUE)
            ::SetupDiDestroyDeviceInfoList(list_);
    }
    DeviceList(const DeviceList&) = delete;
    DeviceList& operator=(const DeviceList&) = delete;

    [[nodiscard]] HDEVINFO Get() const { return list_; }
    [[nodiscard]] std::optional<SP_DEVINFO_DATA> Device(DWORD index) const
    {
        SP_DEVINFO_DATA device{};
        device.cbSize = sizeof device;
        if (list_ == INVALID_HANDLE_VALUE || !::SetupDiEnumDeviceInfo(list_, index, &device))
            return std::nullopt;
        return device;
    }

private:
    HDEVINFO list_;
};

std::string PortNameOf(const DeviceList& list, SP_DEVINFO_DATA& device)
{
    HKEY const key =
        ::SetupDiOpenDevRegKey(list.Get(), &device, DICS_FLAG_GLOBAL, 0, DIREG_DEV, KEY_QUERY_VALUE);
    if (key == INVALID_HANDLE_VALUE)
        return {};
    Characters name{};
    DWORD size = sizeof name;
    const LSTATUS result =
        ::RegGetValueW(key, nullptr, L"PortName", RRF_RT_REG_SZ, nullptr, name.data(), &size);
    ::RegCloseKey(key);
    return result == ERROR_SUCCESS ? Utf8(name.data()) : std::string();
}

std::string PropertyOf(const DeviceList& list, SP_DEVINFO_DATA& device, DWORD property)
{
    Characters text{};
    constexpr DWORD kSize = sizeof text - sizeof(wchar_t); // a zero stays behind it in any case
    if (!::SetupDiGetDeviceRegistryPropertyW(list.Get(), &device, property, nullptr,
                                             reinterpret_cast<BYTE*>(text.data()), kSize, nullptr))
        return {};
    return Utf8(text.data());
}

std::string InstanceIdOf(DEVINST device)
{
    Characters id{};
    return ::CM_Get_Device_IDW(device, id.data(), id.size() - 1, 0) == CR_SUCCESS ? Utf8(id.data())
                                                                                  : std::string();
}

/// The first of its location paths: the chain of hubs and sockets that leads to it.
std::string PlaceOf(DEVINST device)
{
    Characters paths{};
    ULONG size = sizeof paths - 2 * sizeof(wchar_t);
    return ::CM_Get_DevNode_Registry_PropertyW(device, CM_DRP_LOCATION_PATHS, nullptr, paths.data(), &size,
                                               0) == CR_SUCCESS
               ? Utf8(paths.data())
               : std::string();
}

/// Tells by what the device of a port is known again: what is above the port has serial number and place.
void Identify(DEVINST device, PortDescription& description)
{
    std::string id = InstanceIdOf(device);
    description.channel = ChannelIn(id);
    while (BelongsToDeviceAbove(id) && ::CM_Get_Parent(&device, device, 0) == CR_SUCCESS)
        id = InstanceIdOf(device);
    description.serialNumber = SerialNumberIn(id);
    if (id.starts_with("USB\\"))
        description.place = PlaceOf(device);
}

/// @return nothing when the list has no port of that name
std::optional<PortDescription> DescriptionIn(const DeviceList& list, const std::string& portName)
{
    for (DWORD index = 0; auto device = list.Device(index); ++index) {
        if (PortNameOf(list, *device) != portName)
            continue;
        const std::string name = PropertyOf(list, *device, SPDRP_FRIENDLYNAME);
        PortDescription description{.maker = PropertyOf(list, *device, SPDRP_MFG),
                                    .product = std::string(WithoutPortName(name, portName)),
                                    .serialNumber = {}};
        Identify(device->DevInst, description);
        return description;
    }
    return std::nullopt;
}

} // namespace

PortDescription WindowsPortDescriptions::Describe(const PortDevice& device) const
{
    const std::string portName = device.path.substr(device.path.rfind('\\') + 1);
    // Not every driver files its ports in the class, nor offers the interface.
    auto description = DescriptionIn(DeviceList(kPortsClass, DIGCF_PRESENT), portName);
    if (!description)
        description =
            DescriptionIn(DeviceList(kComPortInterface, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE), portName);
    return description.value_or(PortDescription{});
}

} // namespace quorvane
