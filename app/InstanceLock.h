#pragma once

namespace quorvane {

/// Lets one instance of the program run for each user.
class InstanceLock {
public:
    virtual ~InstanceLock() = default;
    /// Whether another instance of this user runs on this machine. The first question takes the lock, which
    /// is held until this object goes, however the program ends.
    /// @return false, too, when no lock can be had at all: it must not keep anybody from measuring
    [[nodiscard]] virtual bool PreviousInstanceRunning() = 0;
};

} // namespace quorvane
