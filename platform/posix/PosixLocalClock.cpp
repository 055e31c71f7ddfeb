#include "platform/posix/PosixLocalClock.h"

#include <ctime>

namespace quorvane {

LocalMoment PosixLocalClock::Now() const
{
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    ::localtime_r(&now, &parts);
    using namespace std::chrono;
    const year_month_day date{year{parts.tm_year + 1900}, month{static_cast<unsigned>(parts.tm_mon + 1)},
                              day{static_cast<unsigned>(parts.tm_mday)}};
    return local_days{date} + hours{parts.tm_hour} + minutes{parts.tm_min} + seconds{parts.tm_sec};
}

} // namespace quorvane
