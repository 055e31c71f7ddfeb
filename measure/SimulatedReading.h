#pragma once

#include "app/LocalClock.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quorvane {

/// Draws uniformly distributed numbers in [0, 1).
using RandomSource = std::function<double()>;

/// @param seed  the same seed gives the same numbers on every system; nothing: other numbers each time
[[nodiscard]] RandomSource MakeRandomSource(const std::optional<std::uint64_t>& seed = std::nullopt);

/// A made-up data line for running without an instrument: "hh:mm:ss;ccccccc;mmm.mmm;1.2", without line end.
/// The count is 0 to 4; the concentration lies below 4 mg/m3 for the first ten samples and below 6 after
/// that.
/// @param sample  its number, from 1
[[nodiscard]] std::string SimulatedLine(std::int32_t sample, LocalMoment now, const RandomSource& random);

} // namespace quorvane
