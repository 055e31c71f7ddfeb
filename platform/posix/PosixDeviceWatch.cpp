#include "platform/posix/PosixDeviceWatch.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <sys/inotify.h>
#include <unistd.h>

namespace quorvane {
namespace {

constexpr unsigned kComesOrGoes = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr std::string_view kSerialNames[] = {"tty", "rfcomm"};

bool IsOfSerialDevice(const inotify_event& change, const char* name)
{
    if ((change.mask & IN_Q_OVERFLOW) != 0)
        return true; // changes were lost, and one of them may have been
    return (change.mask & kComesOrGoes) != 0 && change.len > 0 &&
           std::ranges::any_of(kSerialNames, [name = std::string_view(name)](std::string_view start) {
               return name.starts_with(start);
           });
}

} // namespace

PosixDeviceWatch::PosixDeviceWatch(const std::string& folder)
    : changes_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (changes_.IsOpen() &&
        ::inotify_add_watch(changes_.Get(), folder.c_str(), kComesOrGoes | IN_ONLYDIR) < 0)
        changes_.Close();
}

bool PosixDeviceWatch::TakeChange()
{
    bool changed = false;
    char bytes[4096]; // at least one change, its name included
    ssize_t count = 0;
    while (changes_.IsOpen() && (count = ::read(changes_.Get(), bytes, sizeof bytes)) > 0) {
        const char* const end = bytes + count;
        for (const char* at = bytes; at < end;) {
            inotify_event change{};
            std::memcpy(&change, at, sizeof change);
            changed |= IsOfSerialDevice(change, at + sizeof change);
            at += sizeof change + change.len;
        }
    }
    return changed;
}

} // namespace quorvane
