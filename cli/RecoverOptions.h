#pragma once

#include "app/CommandOptions.h"

#include <optional>
#include <span>
#include <string>

namespace quorvane {

enum class RecoverAction { Save, Discard, List };

/// What `quorvane-cli recover` was asked for.
struct RecoverOptions {
    RecoverAction action = RecoverAction::Save;
    bool help = false;
    std::string output;    ///< the data file to write
    std::string journal;   ///< which one; empty: the newest that is left over
    bool previous = false; ///< the one that is kept of the last run that was settled
};

/// Reads the arguments behind "recover". @return the first thing that is wrong with them
[[nodiscard]] std::optional<UsageFault> ReadRecoverOptions(std::span<const std::string> arguments,
                                                           RecoverOptions& options);

/// The options with their help.
[[nodiscard]] std::string RecoverUsage();

} // namespace quorvane
