#include "simulator/LineServer.h"

#include <algorithm>
#include <poll.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kMostOutgoing = 65536; // bytes; beyond, they wait inside the instrument
constexpr auto kNap = 5ms; // a line without a client reports that without end: look now and then
constexpr auto kForever = 1h;
constexpr auto kLastReading = 200ms; // closing the line throws away what the client has not read

} // namespace

LineServer::End LineServer::Serve()
{
    while (!stop_.Raised()) {
        const Time now = Now();
        if (instrument_.Unplugged(now) == plugged_ && !TurnPlug(now))
            return End::Failed;
        if (plugged_ && !Listen(now))
            return End::Failed;
        PassOn(now);
        if (instrument_.HungUp(now) && outgoing_.empty()) {
            Wait(kLastReading, false);
            terminal_.Close();
            return End::HungUp;
        }
        WaitForNextEvent();
    }
    return End::Stopped;
}

/// @return false when there is no line to be had
bool LineServer::TurnPlug(Time now)
{
    plugged_ = !plugged_;
    log_.Note(now, plugged_ ? "plugged in" : "unplugged");
    if (!plugged_) {
        terminal_.Close();
        client_ = false;
    } else if (auto fault = terminal_.Open()) {
        failure_ = *fault;
        return false;
    }
    plugTurned_(plugged_);
    return true;
}

/// @return false when the line is lost
bool LineServer::Listen(Time now)
{
    // Read first: who is seen to have written and gone in between gets no answer, as on a wire.
    const std::string commands = terminal_.Read();
    if (!NoticeClients(now))
        return false;
    if (!commands.empty()) {
        log_.Note(now, "received", commands);
        instrument_.Receive(commands, now);
    }
    return true;
}

/// @return false when the line is lost
bool LineServer::NoticeClients(Time now)
{
    const bool client = terminal_.HasClient();
    if (client == client_)
        return true;
    client_ = client;
    log_.Note(now, client ? "a client came" : "the client left");
    if (client || terminal_.Refresh())
        return true;
    const std::string before = terminal_.Path();
    if (auto fault = terminal_.Open()) {
        failure_ = *fault;
        return false;
    }
    if (terminal_.Path() != before) // the system mostly gives the old name again
        newDevice_();
    return true;
}

void LineServer::PassOn(Time now)
{
    if (outgoing_.size() < kMostOutgoing) {
        const std::string bytes = instrument_.Take(now);
        if (!bytes.empty())
            log_.Note(now, client_ ? "sent" : "lost", bytes);
        outgoing_ += bytes;
    }
    if (!client_)
        outgoing_.clear();
    else if (!outgoing_.empty())
        outgoing_.erase(0, terminal_.Write(outgoing_));
}

void LineServer::WaitForNextEvent() const
{
    Time time = kForever;
    if (!client_) {
        time = kNap;
    } else if (outgoing_.size() < kMostOutgoing) {
        if (const auto due = instrument_.NextDue())
            time = std::min(time, *due - Now());
    }
    if (const auto turn = instrument_.NextTurnOfPlug(Now()))
        time = std::min(time, *turn - Now());
    Wait(std::max(time, Time::zero()), client_);
}

void LineServer::Wait(Time time, bool watchLine) const
{
    pollfd sources[] = {
        {stop_.Descriptor(), POLLIN, 0},
        {terminal_.Descriptor(), static_cast<short>(outgoing_.empty() ? POLLIN : POLLIN | POLLOUT), 0},
    };
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const timespec timeout{static_cast<time_t>(seconds.count()), static_cast<long>((time - seconds).count())};
    ppoll(sources, watchLine ? 2 : 1, &timeout, nullptr);
}

} // namespace quorvane
