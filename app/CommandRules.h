#pragma once

#include "measure/RunObserver.h"

#include <cstdint>

namespace quorvane {

/// Which commands of the main window can be used.
struct EnabledCommands {
    bool command1 = false; ///< the start/stop button
    bool measureStart = false;
    bool measureEnd = false;
    bool limitInputs = false;
    bool save = false;
};

/// One rule for all of them: while a run is prepared nothing can be started or stopped, while it goes on it
/// can only be stopped, and readings can be saved when a finished run is there and no other one is under way.
[[nodiscard]] constexpr EnabledCommands CommandsIn(RunState state, std::int16_t dataPresent)
{
    const bool idle = state == RunState::Idle;
    const bool stoppable = !idle && state != RunState::Preparing;
    return {.command1 = idle || stoppable,
            .measureStart = idle,
            .measureEnd = stoppable,
            .limitInputs = idle,
            .save = idle && dataPresent == 1};
}

} // namespace quorvane
