#pragma once

#include "cli/RecoverOptions.h"

namespace quorvane {

/// Saves the readings of a run that ended with its program, gives them up, or tells what is left.
/// @return the exit status
int RunRecoverCommand(const RecoverOptions& options);

} // namespace quorvane
