#pragma once

#include "app/ApplicationState.h"
#include "app/CommandOptions.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace quorvane {

/// What `quorvane-cli measure` was asked for.
struct MeasureOptions {
    bool help = false;
    std::string port; ///< "COMn" or a device; empty when readings are simulated
    std::optional<std::uint64_t> randomSeed;
    std::int64_t samples = 0;
    std::int64_t intervalSeconds = 0;
    std::string output;
    std::optional<double> twa, stel, ceiling; ///< mg/m3
    double speed = 1;
    std::optional<std::chrono::milliseconds> giveUp;
    bool quiet = false;
};

/// Reads the arguments behind "measure". @return the first thing that is wrong
/// with them
[[nodiscard]] std::optional<UsageFault> ReadMeasureOptions(std::span<const std::string> arguments,
                                                           MeasureOptions& options);

/// The options with their help.
[[nodiscard]] std::string MeasureUsage();

/// Puts what was asked for over the settings.
void ApplyOptions(const MeasureOptions& options, ApplicationState& state);

} // namespace quorvane
