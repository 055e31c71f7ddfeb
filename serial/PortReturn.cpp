#include "serial/PortReturn.h"

#include <algorithm>

namespace quorvane {
namespace {

bool IsSameAdapter(const PortDescription& one, const PortDescription& other)
{
    return one.maker == other.maker && one.product == other.product &&
           one.serialNumber == other.serialNumber && one.channel == other.channel;
}

} // namespace

void PortReturn::Begin(const OpenedPort& port)
{
    port_ = port;
    adapter_ = parts_.descriptions.Describe(port.device);
    mark_ = Mark::SerialNumber;
    if (adapter_.serialNumber.empty() || HasTwin())
        mark_ = adapter_.place.empty() ? Mark::Path : Mark::Place;
}

/// The devices that are there, the one at the path of the beginning first.
std::vector<PortDevice> PortReturn::Candidates() const
{
    std::vector<PortDevice> devices{port_->device};
    for (int number = kFirstComPort; mark_ != Mark::Path && number <= kLastComPort; ++number)
        if (auto device = parts_.names.Device(number); device && device->path != port_->device.path)
            devices.push_back(std::move(*device));
    std::erase_if(devices, [this](const PortDevice& device) { return !parts_.names.Present(device); });
    return devices;
}

/// Some makers give all their adapters the same serial number.
bool PortReturn::HasTwin() const
{
    return std::ranges::any_of(Candidates(), [this](const PortDevice& device) {
        const PortDescription description = parts_.descriptions.Describe(device);
        return IsSameAdapter(description, adapter_) && !IsAtPlace(description);
    });
}

bool PortReturn::IsAtPlace(const PortDescription& description) const
{
    return description.place == adapter_.place;
}

std::optional<PortDevice> PortReturn::Find() const
{
    std::optional<PortDevice> found;
    std::string foundPlace;
    for (const PortDevice& device : Candidates()) {
        const PortDescription description = parts_.descriptions.Describe(device);
        if (!IsSameAdapter(description, adapter_))
            continue;
        if (IsAtPlace(description))
            return device;
        if (mark_ != Mark::SerialNumber)
            continue;
        if (found && foundPlace != description.place)
            return std::nullopt; // two with one number, neither where it was
        found = device;
        foundPlace = description.place;
    }
    return found;
}

bool PortReturn::Look()
{
    if (!port_)
        return false;
    const auto device = Find();
    if (!device || parts_.control.Open(*device, port_->line))
        return false;
    parts_.control.ClearInBuffer();
    parts_.control.SetInputLen(0);
    return parts_.control.IsOpen();
}

} // namespace quorvane
