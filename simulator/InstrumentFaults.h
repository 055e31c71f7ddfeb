#pragma once

#include "app/CommandOptions.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// What can be wrong with a simulated instrument or its line.
enum class FaultKind {
    Silent,
    NoAck,
    LateAck,
    WrongAck,
    Split,
    Garbage,
    NoLineEnd,
    DroppedByte,
    Chatter,
    HangUp,
    Unplug,
};

/// One fault with its numbers; a kind uses only those that it needs.
struct InstrumentFault {
    static constexpr char kAnyCommand = '\0';

    FaultKind kind = FaultKind::Silent;
    char letter = kAnyCommand; ///< the command that it concerns
    int timeMs = 0;            ///< LateAck: how late; Split, Unplug: the pause. Real time, whatever the speed
    int byte = 0;  ///< Split: the pause follows this byte; DroppedByte: this one is missing; from 1
    int every = 0; ///< NoLineEnd, DroppedByte: one data line in so many, from 1
    int count = 0; ///< Garbage: bytes; HangUp, Unplug: lines
};

/// Reads "NAME" or "NAME:ARG[,ARG]", for example "split:8,40", into `fault`.
/// @return what is wrong with it
[[nodiscard]] std::optional<UsageFault> ReadFault(std::string_view text, InstrumentFault& fault);

/// The first of `faults` of that kind that concerns the command `letter`, or nullptr.
[[nodiscard]] const InstrumentFault* FindFault(const std::vector<InstrumentFault>& faults, FaultKind kind,
                                               char letter = InstrumentFault::kAnyCommand);

/// All faults with a line of help each.
[[nodiscard]] std::string FaultHelp();

} // namespace quorvane
