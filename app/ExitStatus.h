#pragma once

namespace quorvane {

/// What the programs end with.
inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1; ///< what was asked for could not be done
inline constexpr int kExitUsage = 2;

} // namespace quorvane
