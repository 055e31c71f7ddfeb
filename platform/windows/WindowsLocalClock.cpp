#include "platform/windows/WindowsLocalClock.h"

#include "platform/windows/Handle.h" // <windows.h> before <timeapi.h>, which needs it

#include <timeapi.h>

namespace quorvane {
namespace {
constexpr UINT kTickMs = 1;
}

WindowsLocalClock::WindowsLocalClock()
{
    ::timeBeginPeriod(kTickMs);
}

WindowsLocalClock::~WindowsLocalClock()
{
    ::timeEndPeriod(kTickMs);
}

LocalMoment WindowsLocalClock::Now() const
{
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    using namespace std::chrono;
    const year_month_day date{year{now.wYear}, month{now.wMonth}, day{now.wDay}};
    return local_days{date} + hours{now.wHour} + minutes{now.wMinute} + seconds{now.wSecond};
}

std::chrono::milliseconds WindowsLocalClock::SinceBoot() const
{
    return std::chrono::milliseconds(::GetTickCount64());
}

} // namespace quorvane
