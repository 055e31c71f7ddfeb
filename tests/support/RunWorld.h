#pragma once

#include "measure/MeasurementRun.h"
#include "tests/support/InstrumentWorld.h"

#include <functional>
#include <string>
#include <vector>

namespace quorvane {

/// Hears a run and keeps what it heard.
class RunListener : public RunObserver {
public:
    std::vector<RunState> states;
    std::vector<int> samples;
    std::vector<Lamp> lit;
    std::vector<RunResult> results;
    int prepared = 0;
    int cleared = 0;
    std::function<void(int)> onSample;
    std::function<void()> onLampOut;

    void StateChanged(RunState state) override { states.push_back(state); }
    void RunPrepared() override { ++prepared; }
    void ReadingsCleared() override { ++cleared; }
    void SampleAdded(int sample) override
    {
        samples.push_back(sample);
        if (onSample)
            onSample(sample);
    }
    void LampChanged(Lamp lamp, bool on) override
    {
        if (on)
            lit.push_back(lamp);
        else if (onLampOut)
            onLampOut();
    }
    void RunEnded(RunResult result) override { results.push_back(result); }
};

/// A whole program without windows in the discrete-event world.
struct RunWorld : InstrumentWorld {
    using InstrumentWorld::InstrumentWorld;

    RunListener listener;
    int saves = 0;
    double nextRandom = 0.5;
    MeasurementRun run{state, arrays, Services([this] { return nextRandom; }), [this] { ++saves; }, listener};
};

} // namespace quorvane
