#pragma once

#include "serial/DeviceWatch.h"

#include <windows.h>

namespace quorvane {

/// Hears the system's notices about COM ports in a hidden window. They come through the event loop of the
/// thread that calls. The window is made at the first call: a program that never asks, and has no event loop
/// perhaps, must not have one, or every broadcast would wait for it.
class WindowsDeviceWatch final : public DeviceWatch {
public:
    WindowsDeviceWatch() = default;
    ~WindowsDeviceWatch() override;
    WindowsDeviceWatch(const WindowsDeviceWatch&) = delete;
    WindowsDeviceWatch& operator=(const WindowsDeviceWatch&) = delete;

    [[nodiscard]] bool TakeChange() override;

private:
    void MakeWindow();
    static LRESULT CALLBACK Hear(HWND window, UINT message, WPARAM event, LPARAM data);

    HWND window_ = nullptr;
    bool asked_ = false;
    bool changed_ = false;
};

} // namespace quorvane
