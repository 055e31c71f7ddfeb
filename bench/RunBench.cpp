#include "tests/support/RunWorld.h"

#include <benchmark/benchmark.h>

namespace quorvane {
namespace {

/// A line that always has the next reading waiting, so that nothing but the step itself is timed.
class EndlessLines : public SerialControl {
public:
    [[nodiscard]] std::optional<PortFault> Open(const PortDevice&, const LineSettings&) override
    {
        open_ = true;
        return std::nullopt;
    }
    void Close() override { open_ = false; }
    [[nodiscard]] bool IsOpen() const override { return open_; }
    [[nodiscard]] int InBufferCount() override
    {
        Refill();
        return static_cast<int>(text_.size() - at_);
    }
    void ClearInBuffer() override { at_ = text_.size(); }
    void SetInputLen(int length) override { length_ = static_cast<std::size_t>(length); }
    [[nodiscard]] std::string Input() override
    {
        Refill();
        if (at_ == text_.size())
            return {};
        const std::size_t length = length_ == 0 ? text_.size() - at_ : length_;
        at_ += length;
        return text_.substr(at_ - length, length);
    }
    [[nodiscard]] bool Output(std::string_view text) override
    {
        streaming_ = text == "D\r\n";
        text_ = streaming_ ? "AD\r\n09:30:01;0000012;001.250;1.2\r\n" : "AN\r\n";
        at_ = 0;
        return true;
    }

private:
    void Refill()
    {
        if (at_ < text_.size() || !streaming_)
            return;
        text_ = "09:30:01;0000012;001.250;1.2\r\n";
        at_ = 0;
    }

    std::string text_;
    std::size_t at_ = 0;
    std::size_t length_ = 0;
    bool open_ = false;
    bool streaming_ = false;
};

/// Timers and a pump without time: each look at the events ticks every timer that is on.
class LeapTimer : public TickTimer {
public:
    void OnTick(std::function<void()> handler) override { handler_ = std::move(handler); }
    void SetInterval(std::chrono::milliseconds) override {}
    void Enable() override { enabled_ = true; }
    void Disable() override { enabled_ = false; }
    [[nodiscard]] bool Enabled() const override { return enabled_; }
    void Tick()
    {
        if (enabled_)
            handler_();
    }

private:
    std::function<void()> handler_;
    bool enabled_ = false;
};

class LeapPump : public EventPump {
public:
    LeapTimer timer1, timer2, timer3;
    [[nodiscard]] bool Serve(std::chrono::milliseconds) override
    {
        timer1.Tick();
        timer2.Tick();
        timer3.Tick();
        return true;
    }
};

/// A whole run of 65,500 readings: read the line character by character, take it apart, sums, exposure
/// values, alarm rules, arrays. The argument is the sampling interval: at 1 s the short-term window has 900
/// readings, at 60 s it has 15.
void PollingStep(benchmark::State& state)
{
    constexpr int kReadings = 65500;
    for ([[maybe_unused]] const auto turn : state) {
        RunWorld with;
        EndlessLines port;
        LeapPump pump;
        PortLink link(with.state, {port, with.names, pump, pump.timer1, with.prompts, with.log, with.texts});
        MeasurementRun run(
            with.state, with.arrays,
            {link, port, pump, pump.timer1, pump.timer2, pump.timer3, with.world, with.prompts, with.log,
             with.texts, [] { return 0.0; }},
            [] {}, with.listener);
        with.state.TotalSamples = kReadings;
        with.prompts.answers = {Answer::Yes}; // so many readings are asked about
        with.state.SamplingSeconds = static_cast<std::int16_t>(state.range(0));
        if (run.Start() != RunResult::Completed)
            state.SkipWithError("the run did not complete");
    }
    state.SetItemsProcessed(state.iterations() * kReadings);
}
BENCHMARK(PollingStep)->ArgName("interval_s")->Arg(1)->Arg(60)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quorvane
