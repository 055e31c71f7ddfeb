#include "simulator/StopSignal.h"

#include <csignal>
#include <initializer_list>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace quorvane {

StopSignal::StopSignal()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    for (const int signal : {SIGINT, SIGHUP}) {
        struct sigaction inherited {};
        if (sigaction(signal, nullptr, &inherited) == 0 && inherited.sa_handler != SIG_IGN)
            sigaddset(&signals, signal);
    }
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    descriptor_ = signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
}

StopSignal::~StopSignal()
{
    if (descriptor_ >= 0)
        close(descriptor_);
}

bool StopSignal::Raised() const
{
    pollfd state{descriptor_, POLLIN, 0};
    return poll(&state, 1, 0) > 0;
}

} // namespace quorvane
