#pragma once

#include "app/EventPump.h"
#include "app/TickTimer.h"

#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quorvane {

/// The time that a `LoopEventPump` lives in. Tests put their own in.
struct LoopTime {
    std::function<std::chrono::steady_clock::time_point()> now;
    std::function<void(std::chrono::steady_clock::time_point)> sleepUntil;

    /// The machine's steady clock and its sleep.
    static LoopTime Real();
};

/// The event pump of a program without windows: its only events are the ticks of its `LoopTimer`s.
///
/// Due timers tick in the order of their due times, those due together in the order of their making. A
/// handler may call `Serve` again: the other timers go on ticking inside it, its own does not. The pump
/// outlives its timers.
class LoopEventPump final : public EventPump {
public:
    /// The longest sleep without a look at the idle hook.
    static constexpr std::chrono::milliseconds kLongestNap{20};

    explicit LoopEventPump(LoopTime time = LoopTime::Real());

    /// A `time` below 0 counts as 0. The idle hook runs at the beginning and after every nap.
    [[nodiscard]] bool Serve(std::chrono::milliseconds time) override;

    /// Ends every `Serve` that goes on, and each later one at once.
    void Close() { closing_ = true; }
    [[nodiscard]] bool Closing() const { return closing_; }

    /// Called between naps; never inside itself.
    void OnIdle(std::function<void()> hook) { idle_ = std::move(hook); }

private:
    friend class LoopTimer;
    struct Entry;
    using EntryPointer = std::shared_ptr<Entry>;

    void RunIdleHook();
    void FireDue();
    void Fire(const EntryPointer& entry);
    [[nodiscard]] EntryPointer EarliestTimer() const;

    LoopTime time_;
    std::vector<EntryPointer> timers_;
    std::function<void()> idle_;
    bool idleRuns_ = false;
    bool closing_ = false;
};

/// A timer of a `LoopEventPump`.
///
/// Ticks stand on a grid of whole intervals from the enabling, so lateness below one interval leaves the
/// average pace as it is. Grid points that have passed by when a tick is over (a long handler, a program
/// held up) are left out: no burst follows. A timer may be destroyed in any handler, its own included.
class LoopTimer final : public TickTimer {
public:
    /// @param speed  how many times faster than its interval says the timer runs, above 0
    explicit LoopTimer(LoopEventPump& pump, double speed = 1.0);
    ~LoopTimer() override;
    LoopTimer(const LoopTimer&) = delete;
    LoopTimer& operator=(const LoopTimer&) = delete;

    void OnTick(std::function<void()> handler) override;
    /// Below 1 ms counts as 1 ms. It is 1 s before the first call.
    void SetInterval(std::chrono::milliseconds interval) override;
    void Enable() override;
    void Disable() override;
    [[nodiscard]] bool Enabled() const override;

private:
    LoopEventPump& pump_;
    std::shared_ptr<LoopEventPump::Entry> entry_;
    double speed_;
};

} // namespace quorvane
