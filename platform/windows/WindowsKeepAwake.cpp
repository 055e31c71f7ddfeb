#include "platform/windows/WindowsKeepAwake.h"

#include <windows.h>

namespace quorvane {

void WindowsKeepAwake::Hold()
{
    ::SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED);
}

void WindowsKeepAwake::Release()
{
    ::SetThreadExecutionState(ES_CONTINUOUS);
}

} // namespace quorvane
