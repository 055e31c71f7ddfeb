#include "platform/windows/WindowsWindowOrder.h"

#include <windows.h>

namespace quorvane {

FrontWindow::Handle WindowsWindowOrder::Foreground() const
{
    return reinterpret_cast<FrontWindow::Handle>(::GetForegroundWindow());
}

void WindowsWindowOrder::BringToTop(FrontWindow::Handle window)
{
    ::BringWindowToTop(reinterpret_cast<HWND>(window)); // fails for a window that has gone, which is as good
}

} // namespace quorvane
