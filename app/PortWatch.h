#pragma once

#include "app/ApplicationState.h"
#include "serial/DeviceWatch.h"
#include "serial/PortNames.h"

#include <string>
#include <utility>

namespace quorvane {

/// Knows whether the device behind the port of the settings is there.
class PortWatch {
public:
    PortWatch(DeviceWatch& devices, const PortNames& names) : devices_(devices), names_(names) {}

    /// To be called every 250 ms. Looks at the device when one has come or gone, when the port is another
    /// one, and every two seconds. It never opens the device.
    /// @return whether there is a device behind `port`
    [[nodiscard]] bool Update(const PortSettings& port);

    /// Whether, since the last call, a reason has come up to read the list of ports again: a device that came
    /// or went, and two seconds behind it once more, by when the links to a new device are made and its
    /// permissions are set.
    [[nodiscard]] bool TakeChange() { return std::exchange(listChanged_, false); }

private:
    DeviceWatch& devices_;
    const PortNames& names_;
    std::string port_;
    bool present_ = false;
    int callsToLook_ = 0; ///< calls that are answered from memory before the next look
    int callsToSecondReading_ = 0;
    bool listChanged_ = false;
};

} // namespace quorvane
