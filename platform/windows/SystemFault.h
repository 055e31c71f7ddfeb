#pragma once

#include "files/FileStore.h"

namespace quorvane {

/// An error of GetLastError as the fault of a file operation, and the last error.
[[nodiscard]] FileFault FaultOf(unsigned long error);
[[nodiscard]] FileFault LastFault();

} // namespace quorvane
