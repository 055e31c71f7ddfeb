#pragma once

#include "app/CommandOptions.h"
#include "app/LocalClock.h"
#include "simulator/SimulatedInstrument.h"

#include <optional>
#include <span>
#include <string>

namespace quorvane {

/// The command line of quorvane-instrument.
struct InstrumentOptions {
    bool help = false;
    bool version = false;
    bool verbose = false;
    std::string link;         ///< a symbolic link to the device; empty: none
    std::string readingsPath; ///< empty: made-up readings
    AtEnd atEnd = AtEnd::Repeat;
    std::optional<LocalMoment> startAt; ///< nothing: the computer's time
    InstrumentSetup setup;              ///< all but `clockAtPowerOn`
};

/// @return what is wrong with the arguments that follow the program's name
[[nodiscard]] std::optional<UsageFault> ReadInstrumentOptions(std::span<const std::string> arguments,
                                                              InstrumentOptions& options);

/// How the program is used, ending in a line end.
[[nodiscard]] std::string InstrumentUsage();

} // namespace quorvane
