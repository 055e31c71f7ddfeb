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

    /// The sentence for the fault, and the system's own words in brackets.
    [[nodiscard]] std::string Reason(const PortFault& fault) const;

    Platform platform;
    ApplicationState state;
    StringTable table;
    Texts texts;
    Console console;
};

} // namespace quorvane
