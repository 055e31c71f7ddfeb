#pragma once

#include <string>

namespace quorvane {

/// The version of the plotting library that the program was built with: "2.1.0".
[[nodiscard]] std::string PlotLibraryVersion();

} // namespace quorvane
