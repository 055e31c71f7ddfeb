#pragma once

namespace quorvane {

/// Notices that serial devices come and go.
class DeviceWatch {
public:
    virtual ~DeviceWatch() = default;
    /// Whether a serial device has come or gone since the last call. Never waits. Always called on the same
    /// thread, one that serves the system's events; a system that does not tell gives false for ever.
    [[nodiscard]] virtual bool TakeChange() = 0;
};

} // namespace quorvane
