#pragma once

#include "app/ApplicationState.h"
#include "app/Texts.h"
#include "cli/Console.h"
#include "platform/Platform.h"
#include "resources/StringTable.h"

#include <string>

namespace quorvane {

/// What every command of the command line starts from: the system's parts, the
/// state, the texts, the terminal.
struct CommandWorld {
    /// @param progress  whether the command wants a progress line (it gets one on
    /// a terminal only)
    explicit CommandWorld(bool progress);

    Platform platform;
    ApplicationState state;
    StringTable table;
    Texts texts;
    Console console;
};

} // namespace quorvane
