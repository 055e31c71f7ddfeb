#pragma once

#include "measure/MeasurementRun.h"
#include "serial/PortReturn.h"
#include "tests/support/InstrumentWorld.h"
#include "tests/support/ScriptedPorts.h"

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
    /// Its COM1 is an adapter that can be pulled out, and is found again. The instrument measures on
    /// meanwhile.
    explicit RunWorld(const PortDescription& adapter) : looksForReturn(true) { PlugIn(adapter); }

    void PullOut()
    {
        port.Vanish();
        ports.plugged.clear();
    }
    void PlugIn(const PortDescription& adapter) { ports.plugged[1].description = adapter; }

    bool looksForReturn = false;
    ScriptedPorts ports;
    PortReturn portReturn{{port, names, ports}};
    RunListener listener;
    int saves = 0;
    double nextRandom = 0.5;
    MeasurementRun run{state, arrays, WithReturn(), [this] { ++saves; }, listener};

private:
    RunServices WithReturn()
    {
        RunServices services = Services([this] { return nextRandom; });
        services.portReturn = looksForReturn ? &portReturn : nullptr;
        return services;
    }
};

} // namespace quorvane
