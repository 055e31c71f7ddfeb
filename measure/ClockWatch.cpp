#include "measure/ClockWatch.h"

namespace quorvane {

using namespace std::chrono_literals;

namespace {

/// The lines of so long a time may be more than the system keeps for the program.
constexpr std::chrono::seconds kStandstill{10};
/// What a time server corrects without a jump stays below it.
constexpr std::chrono::seconds kClockJump{2};

} // namespace

std::optional<RunGap> ClockWatch::Look()
{
    const Clocks before = seen_;
    seen_ = Read();
    const auto passed = seen_.sinceBoot - before.sinceBoot;
    const auto jump = seen_.system - before.system - passed;
    if (passed >= kStandstill) // whoever sleeps often has the clock set on waking: one gap is enough
        return RunGap{.before = 0, .kind = GapKind::Standstill, .from = before.local, .to = seen_.local};
    if (jump >= kClockJump || jump <= -kClockJump)
        return RunGap{.before = 0, .kind = GapKind::ClockSet, .from = before.local, .to = seen_.local};
    return std::nullopt;
}

} // namespace quorvane
