#pragma once

#include "cli/ChosenPort.h"
#include "cli/CommandWorld.h"
#include "cli/ConsolePrompts.h"
#include "platform/InterruptWatch.h"
#include "platform/LoopEventPump.h"
#include "serial/PortLink.h"
#include "serial/SerialLog.h"

#include <functional>
#include <string>

namespace quorvane {

/// The instrument's line as a command uses it: pump and timer of its waits, messages on the terminal, error
/// log, port, link, and Ctrl-C. Reads the settings file into the world's state.
class InstrumentLine {
public:
    /// @param port  the value of --port; empty: the port of the settings counts
    InstrumentLine(CommandWorld& world, const std::string& port, NamedFiles files);

    /// What each Ctrl-C does. Called from within waits.
    void OnInterrupt(std::function<void()> handler) { interrupted_ = std::move(handler); }

    /// Waits until all that was printed is out. Who reads slowly gets everything; who does not read at all is
    /// waited for until the next Ctrl-C.
    void WaitForReader();

    [[nodiscard]] LoopEventPump& Pump() { return pump_; }
    [[nodiscard]] LoopTimer& Timer1() { return timer1_; }
    [[nodiscard]] ConsolePrompts& Messages() { return prompts_; }
    [[nodiscard]] SerialLog& Log() { return log_; }
    [[nodiscard]] PortLink& Link() { return link_; }

private:
    void PassInterruptsOn();

    CommandWorld& world_;
    InterruptWatch interrupts_;
    int interruptsSeen_ = 0;
    std::function<void()> interrupted_;
    ConsolePrompts prompts_;
    ChosenPort port_;
    LoopEventPump pump_;
    LoopTimer timer1_;
    SerialLog log_;
    PortLink link_;
};

} // namespace quorvane
