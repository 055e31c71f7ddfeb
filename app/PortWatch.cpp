#include "app/PortWatch.h"

#include "serial/LineSettingsText.h"

namespace quorvane {
namespace {

/// The system tells of a device a moment before the links to it are made, and not every device lies where the
/// system tells of it.
constexpr int kCallsFromMemory = 7;
constexpr int kCallsToSecondReading = 8; ///< two seconds

} // namespace

bool PortWatch::Update(const PortSettings& port)
{
    const bool changed = devices_.TakeChange();
    if (changed)
        callsToSecondReading_ = kCallsToSecondReading;
    else if (callsToSecondReading_ > 0 && --callsToSecondReading_ == 0)
        listChanged_ = true;
    listChanged_ = listChanged_ || changed;
    if (!changed && port.RsPort == port_ && callsToLook_ > 0) {
        --callsToLook_;
        return present_;
    }
    callsToLook_ = kCallsFromMemory;
    port_ = port.RsPort;
    const auto device = names_.Device(PortNumber(port_));
    present_ = device && names_.Present(*device);
    return present_;
}

} // namespace quorvane
