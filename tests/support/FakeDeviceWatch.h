#pragma once

#include "serial/DeviceWatch.h"

#include <utility>

namespace quorvane {

/// Devices come and go when the script says so.
class FakeDeviceWatch : public DeviceWatch {
public:
    bool changed = false;
    [[nodiscard]] bool TakeChange() override { return std::exchange(changed, false); }
};

} // namespace quorvane
