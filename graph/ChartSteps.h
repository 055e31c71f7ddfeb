#pragma once

namespace quorvane {

/// The shortest distance of time labels that is a round time (1, 2, 5, 10 s, ... 1 h, ... whole days) and not
/// below `seconds`; at least one second.
[[nodiscard]] double RoundTimeStep(double seconds);

/// The smallest of 1, 2 and 5, times a power of ten, that is not below `step`; 1 for what is no step.
[[nodiscard]] double RoundValueStep(double step);

/// Decimals that tell labels apart that are `step` (a round one) from each other: 0 for 1 and more, 1 for
/// 0.2.
[[nodiscard]] int DecimalsOfStep(double step);

} // namespace quorvane
