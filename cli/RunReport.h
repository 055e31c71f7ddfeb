#pragma once

#include "app/Texts.h"
#include "cli/Console.h"
#include "measure/MeasurementArrays.h"
#include "measure/RunObserver.h"

#include <string>
#include <vector>

namespace quorvane {

/// Tells a run on the terminal: a row for each reading, a line for each alarm.
class RunReport : public RunObserver {
public:
    /// @param rows  whether the readings are printed
    RunReport(Console& console, const MeasurementArrays& arrays, const AlarmLimits& limits,
              const Texts& texts, std::string decimalSign, bool rows);

    void StateChanged(RunState state) override;
    void RunPrepared() override {}
    void ReadingsCleared() override {}
    void SampleAdded(int sample) override;
    void LampChanged(Lamp lamp, bool lit) override;
    void RunEnded(RunResult) override {}

private:
    [[nodiscard]] std::string Row(std::size_t sample) const;
    [[nodiscard]] std::string AlarmLine(std::size_t sample, Lamp lamp) const;

    Console& console_;
    const MeasurementArrays& arrays_;
    const AlarmLimits& limits_;
    const Texts& texts_;
    std::string decimalSign_;
    bool rows_;
    std::vector<Lamp> newlyLit_; ///< by the reading that is being taken
};

} // namespace quorvane
