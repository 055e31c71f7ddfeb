#pragma once

#include "app/InstanceLock.h"
#include "platform/windows/Handle.h"

namespace quorvane {

/// A named object of the system that lives as long as a process holds it. Its name carries the user, so each
/// user of the machine has one, in all sessions the same.
class WindowsInstanceLock final : public InstanceLock {
public:
    [[nodiscard]] bool PreviousInstanceRunning() override;

private:
    Handle mutex_;
};

} // namespace quorvane
