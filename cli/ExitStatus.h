#pragma once

namespace quorvane {

/// What the command line ends with.
inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1; ///< the run or the save failed
inline constexpr int kExitUsage = 2;

} // namespace quorvane
