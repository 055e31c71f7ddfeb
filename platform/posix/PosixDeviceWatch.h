#pragma once

#include "platform/posix/FileDescriptor.h"
#include "serial/DeviceWatch.h"

#include <string>

namespace quorvane {

/// Watches the folder of the devices for names tty* and rfcomm*. Never notices anything when the system gives
/// no watch.
class PosixDeviceWatch final : public DeviceWatch {
public:
    explicit PosixDeviceWatch(const std::string& folder = "/dev");
    [[nodiscard]] bool TakeChange() override;

private:
    FileDescriptor changes_;
};

} // namespace quorvane
