#pragma once

#include "app/EventPump.h"
#include "app/LocalClock.h"
#include "app/TickTimer.h"

#include <chrono>
#include <functional>
#include <map>
#include <vector>

namespace quorvane {

class WorldTimer;

/// A discrete-event world: time stands still but while events are served, and then jumps from event to event.
/// It is the clock, the event pump and the source of the timers, so that a nine-hour run takes milliseconds.
class World : public EventPump, public LocalClock {
public:
    using Time = std::chrono::nanoseconds;

    explicit World(LocalMoment start) : start_(start) {}

    bool Serve(std::chrono::milliseconds time) override;
    [[nodiscard]] LocalMoment Now() const override;
    [[nodiscard]] std::chrono::steady_clock::time_point SteadyNow() const override
    {
        return std::chrono::steady_clock::time_point(
            std::chrono::duration_cast<std::chrono::steady_clock::duration>(now_));
    }

    [[nodiscard]] std::chrono::system_clock::time_point SystemNow() const override
    {
        return std::chrono::system_clock::time_point(
            std::chrono::floor<std::chrono::system_clock::duration>(now_ + asleep_ + set_));
    }
    [[nodiscard]] std::chrono::milliseconds SinceBoot() const override
    {
        return std::chrono::floor<std::chrono::milliseconds>(now_ + asleep_);
    }
    /// The computer sleeps for so long: no timer ticks, nothing is received.
    void Sleep(Time time) { asleep_ += time; }
    /// Somebody sets the computer's clock on, or back.
    void SetClock(Time by) { set_ += by; }
    /// The zone's time goes forward, or back.
    void ShiftZone(Time by) { zone_ += by; }

    [[nodiscard]] Time Elapsed() const { return now_; }
    /// Runs `event` so much later, while events are served.
    void After(Time delay, std::function<void()> event) { events_.emplace(now_ + delay, std::move(event)); }
    /// From here on every pump says that the program is closing.
    void Close() { closing_ = true; }

    /// How often events were served; a world that is pumped without end throws.
    [[nodiscard]] long Pumps() const { return pumps_; }
    /// Called at every pump with its number, from 1.
    std::function<void(long)> onPump;
    long pumpLimit = 20'000'000;

private:
    friend class WorldTimer;
    [[nodiscard]] bool RunNext(Time until);

    LocalMoment start_;
    Time now_{};
    Time asleep_{};
    Time set_{};
    Time zone_{};
    bool closing_ = false;
    long pumps_ = 0;
    std::multimap<Time, std::function<void()>> events_;
    std::vector<WorldTimer*> timers_;
};

class WorldTimer : public TickTimer {
public:
    explicit WorldTimer(World& world) : world_(world) { world_.timers_.push_back(this); }
    ~WorldTimer() override { std::erase(world_.timers_, this); }
    WorldTimer(const WorldTimer&) = delete;
    WorldTimer& operator=(const WorldTimer&) = delete;

    void OnTick(std::function<void()> handler) override { handler_ = std::move(handler); }
    void SetInterval(std::chrono::milliseconds interval) override;
    void Enable() override;
    void Disable() override { enabled_ = false; }
    [[nodiscard]] bool Enabled() const override { return enabled_; }
    [[nodiscard]] std::chrono::milliseconds Interval() const { return interval_; }

private:
    friend class World;
    void Tick();

    World& world_;
    std::function<void()> handler_;
    std::chrono::milliseconds interval_{1000};
    World::Time due_{};
    bool enabled_ = false;
    bool inHandler_ = false;
};

} // namespace quorvane
