#pragma once

#include "simulator/PseudoTerminal.h"
#include "simulator/SimulatedInstrument.h"
#include "simulator/StopSignal.h"
#include "simulator/TrafficLog.h"

#include <chrono>
#include <functional>
#include <string>
#include <utility>

namespace quorvane {

/// Lets a simulated instrument live on a virtual serial line, in real time. As on a wire, what it sends while
/// nobody listens is lost, and what a client did not read is not kept for the next (clients that follow each
/// other within milliseconds are taken for one). A client that reads slowly loses nothing.
class LineServer {
public:
    enum class End { Stopped, HungUp, Failed };

    /// `newDevice` is called when the line had to move to a device of another name, `plugTurned` when the
    /// line was unplugged (false) or is there again, perhaps under another name.
    LineServer(SimulatedInstrument& instrument, PseudoTerminal& terminal, const StopSignal& stop,
               TrafficLog& log, std::function<void()> newDevice, std::function<void(bool)> plugTurned)
        : instrument_(instrument),
          terminal_(terminal),
          stop_(stop),
          log_(log),
          newDevice_(std::move(newDevice)),
          plugTurned_(std::move(plugTurned))
    {
    }

    /// Returns when the stop signal comes, when the instrument has gone away, or when there is no line any
    /// more.
    [[nodiscard]] End Serve();
    [[nodiscard]] const std::string& FailureText() const { return failure_; }

private:
    using Time = SimulatedInstrument::Time;

    [[nodiscard]] Time Now() const { return std::chrono::steady_clock::now() - powerOn_; }
    [[nodiscard]] bool TurnPlug(Time now);
    [[nodiscard]] bool Listen(Time now);
    [[nodiscard]] bool NoticeClients(Time now);
    void PassOn(Time now);
    void Wait(Time time, bool watchLine) const;
    void WaitForNextEvent() const;

    SimulatedInstrument& instrument_;
    PseudoTerminal& terminal_;
    const StopSignal& stop_;
    TrafficLog& log_;
    std::function<void()> newDevice_;
    std::function<void(bool)> plugTurned_;
    std::chrono::steady_clock::time_point powerOn_ = std::chrono::steady_clock::now();
    bool plugged_ = true;
    bool client_ = false;
    std::string outgoing_; ///< sent by the instrument, not yet taken by the line
    std::string failure_;
};

} // namespace quorvane
