#pragma once

#include "cli/SettingOptions.h"

namespace quorvane {

/// Looks at the instrument's settings or changes them, and tells how that went. The settings file stays as it
/// is. @return the exit status
int RunSettingCommand(const SettingOptions& options);

} // namespace quorvane
