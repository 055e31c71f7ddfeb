#pragma once

#include "app/ApplicationState.h"
#include "serial/PortLink.h"
#include "serial/SerialControl.h"
#include "serial/SerialLog.h"

#include <string>

namespace quorvane {

/// One setting on its way to the instrument, and how its acknowledgement is waited for.
struct InstrumentCommand {
    /// Where the waits lie. The measuring program takes the instrument longer than the others.
    enum class Waiting {
        BeforeFirstRead, ///< 2000 ms once, then the reads follow each other
        BeforeEachRead,  ///< three ticks of 100 ms before every read
    };

    char letter = 0;
    std::string parameters; ///< what stands behind the letter, without CR LF
    Waiting waiting = Waiting::BeforeEachRead;
    bool clearInputFirst = false; ///< drops what was received before

    /// Letter and parameters, as they are shown: "E1.2".
    [[nodiscard]] std::string Text() const { return letter + parameters; }
};

enum class ExchangeOutcome {
    Completed,
    Failed, ///< logged; the link check has been run to find the instrument again
    /// By the operator, by another exchange, or because the program closes. Nothing is logged then, unless it
    /// was the link check behind a failure that was ended.
    Cancelled,
};

/// What came of a request.
struct CommandReply {
    bool acknowledged = false;
    std::string text; ///< of the last read
    int reads = 0;
    WaitOutcome wait = WaitOutcome::Elapsed; ///< how the last wait ended
};

/// Sends a command and reads up to three times four characters, the length of an acknowledgement. What fits
/// no acknowledgement is dropped; a fourth read ends the attempt unlooked at, whatever it brings. So do a
/// wait that does not elapse, and a request that the port does not take (0 reads).
[[nodiscard]] CommandReply RequestAcknowledgement(PortLink& link, SerialControl& control,
                                                  const InstrumentCommand& command);

/// Sends settings to the instrument and waits for their acknowledgement.
class CommandExchange {
public:
    CommandExchange(const ComputerSettings& mode, PortLink& link, SerialControl& control, SerialLog& log)
        : mode_(mode), link_(link), control_(control), log_(log)
    {
    }

    /// Sends one command over the open port, see `RequestAcknowledgement`. A failure runs the link check
    /// first and is logged after it, under the command's name with the last reply and the number of reads.
    /// With `RunMode` false it has succeeded at once. Messages are the caller's.
    [[nodiscard]] ExchangeOutcome Send(const InstrumentCommand& command);

private:
    const ComputerSettings& mode_;
    PortLink& link_;
    SerialControl& control_;
    SerialLog& log_;
};

} // namespace quorvane
