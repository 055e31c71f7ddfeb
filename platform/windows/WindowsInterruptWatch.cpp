#include "platform/InterruptWatch.h"

#include <atomic>
#include <windows.h>

namespace quorvane {
namespace {

std::atomic<int> requests{0};

// Runs on a thread of its own.
BOOL WINAPI CountRequest(DWORD event)
{
    requests.fetch_add(1);
    if (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT)
        return TRUE;
    // When the console closes or the user logs off, the system ends the program as soon as this returns: it
    // does not, so the program has the system's few seconds to save and end by itself.
    ::Sleep(INFINITE);
    return TRUE;
}

} // namespace

struct InterruptWatch::Saved {};

InterruptWatch::InterruptWatch() : countAtStart_(requests.load())
{
    ::SetConsoleCtrlHandler(&CountRequest, TRUE);
}

InterruptWatch::~InterruptWatch()
{
    ::SetConsoleCtrlHandler(&CountRequest, FALSE);
}

int InterruptWatch::Count() const
{
    return requests.load() - countAtStart_;
}

} // namespace quorvane
