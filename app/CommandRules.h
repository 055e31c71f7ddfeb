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
    bool settings = false; ///< the settings menus
    bool open = false;
    bool save = false;
    bool command3 = false; ///< whole run
    bool command4 = false; ///< zoom
    bool picture = false;  ///< the chart on paper, in a file, on the clipboard
};

/// One rule for all of them: while a run is prepared nothing can be used; while it goes on it can be stopped
/// and its chart printed, for that changes nothing; all else needs an idle program. Saving needs readings,
/// too: a finished run's or an opened file's.
[[nodiscard]] constexpr EnabledCommands CommandsIn(RunState state, std::int16_t dataPresent)
{
    const bool idle = state == RunState::Idle;
    const bool stoppable = !idle && state != RunState::Preparing;
    const bool data = dataPresent == 1;
    const bool readingsComing = state == RunState::Measuring || state == RunState::Stopping;
    return {.command1 = idle || stoppable,
            .measureStart = idle,
            .measureEnd = stoppable,
            .limitInputs = idle,
            .settings = idle,
            .open = idle,
            .save = idle && data,
            .command3 = idle,
            .command4 = idle,
            .picture = (idle && data) || readingsComing};
}

} // namespace quorvane
