#pragma once

#include <utility>
#include <windows.h>

namespace quorvane {

/// Owns a handle of the system.
class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    ~Handle() { Close(); }
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }

    [[nodiscard]] HANDLE Get() const { return handle_; }
    [[nodiscard]] bool IsOpen() const { return handle_ != nullptr; }
    /// @return false when the system reports a failure; it is closed in any case
    bool Close() { return handle_ == nullptr || ::CloseHandle(std::exchange(handle_, nullptr)) != FALSE; }

private:
    HANDLE handle_ = nullptr;
};

} // namespace quorvane
