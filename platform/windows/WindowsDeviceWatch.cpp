#include "platform/windows/WindowsDeviceWatch.h"

#include <dbt.h>
#include <string_view>
#include <utility>

namespace quorvane {
namespace {

constexpr wchar_t kClassName[] = L"QuorvaneDeviceWatch";

bool IsComPort(const DEV_BROADCAST_HDR* device)
{
    if (device == nullptr || device->dbch_devicetype != DBT_DEVTYP_PORT)
        return false;
    const auto* const port = reinterpret_cast<const DEV_BROADCAST_PORT_W*>(device);
    return std::wstring_view(port->dbcp_name).starts_with(L"COM");
}

} // namespace

WindowsDeviceWatch::~WindowsDeviceWatch()
{
    if (window_ != nullptr)
        ::DestroyWindow(window_);
}

bool WindowsDeviceWatch::TakeChange()
{
    if (!std::exchange(asked_, true))
        MakeWindow();
    return std::exchange(changed_, false);
}

/// A top-level window, though a hidden one: a window for messages only hears no broadcasts.
void WindowsDeviceWatch::MakeWindow()
{
    const HINSTANCE program = ::GetModuleHandleW(nullptr);
    WNDCLASSW kind{};
    kind.lpfnWndProc = &Hear;
    kind.hInstance = program;
    kind.lpszClassName = kClassName;
    ::RegisterClassW(&kind); // fails when it is known already, which is as good
    window_ =
        ::CreateWindowExW(0, kClassName, L"", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr, program, nullptr);
    if (window_ != nullptr)
        ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

LRESULT CALLBACK WindowsDeviceWatch::Hear(HWND window, UINT message, WPARAM event, LPARAM data)
{
    if (message == WM_CLOSE)
        return 0; // from programs that close whatever they find; it lives as long as its owner
    const bool comesOrGoes = event == DBT_DEVICEARRIVAL || event == DBT_DEVICEREMOVECOMPLETE;
    auto* const watch = reinterpret_cast<WindowsDeviceWatch*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_DEVICECHANGE && comesOrGoes && watch != nullptr &&
        IsComPort(reinterpret_cast<const DEV_BROADCAST_HDR*>(data)))
        watch->changed_ = true;
    return ::DefWindowProcW(window, message, event, data);
}

} // namespace quorvane
