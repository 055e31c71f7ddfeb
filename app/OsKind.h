#pragma once

#include "app/SystemInfo.h"

#include <cstdint>

namespace quorvane {

/// The class of an operating system that tells nothing of its version.
inline constexpr std::int16_t kUnknownOsKind = 1;

/// Classifies the operating system by its version: 0 for 5.1; 1 unknown, or 5.0; 2 for 4.0 of the NT family;
/// 3 for 3.x and other 4.0; 4 for 4.0 with service pack "C", 4.10 and 4.90; 7 for 6.x; 8 for all others.
[[nodiscard]] std::int16_t ClassifySystem(const SystemInfo& system);

} // namespace quorvane
