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

std::chrono::milliseconds PosixLocalClock::SinceBoot() const
{
#ifdef CLOCK_BOOTTIME
    constexpr clockid_t kClock = CLOCK_BOOTTIME;
#else
    constexpr clockid_t kClock =
        CLOCK_MONOTONIC; // goes on in a computer that sleeps, where the other is unknown
#endif
    std::timespec time{};
    ::clock_gettime(kClock, &time);
    return std::chrono::seconds(time.tv_sec) +
           std::chrono::floor<std::chrono::milliseconds>(std::chrono::nanoseconds(time.tv_nsec));
}

} // namespace quorvane
