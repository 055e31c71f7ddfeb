#pragma once

#include "app/SystemInfo.h"

#include <functional>
#include <string>
#include <vector>

namespace quorvane {

/// Gives the text of a file; empty when it cannot be read.
using ReadText = std::function<std::string(const std::string& path)>;

/// The processors that /proc/cpuinfo lists, with what /sys/devices/system/cpu adds about clocks and caches.
/// What the files do not tell, or tell in no known form, stays empty.
[[nodiscard]] std::vector<ProcessorRecord> ListProcessors(const ReadText& read);

} // namespace quorvane
