#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "files/JournalStore.h"
#include "measure/MeasurementArrays.h"

#include <cstdint>
#include <string>

namespace quorvane {

/// The journal of the readings at hand, a file in the program's folder: from the start of their run until
/// they are saved, discarded or replaced. What the store does not take at once is offered again from the
/// arrays, so that a slow disk costs no memory and no reading.
class RunJournal {
public:
    /// @param settings  parameters of the run, looked at when it begins
    RunJournal(const ProgramPlace& place, const MeasureSettings& settings, const MeasurementArrays& arrays,
               JournalStore& store);

    /// A run begins and replaces the readings at hand: theirs is retired, a new one begins.
    void Begin(LocalMoment start, bool simulated);
    /// Readings 1 to `sample` are in the arrays, and so are the gaps between them.
    void Taken(std::int32_t sample);
    /// Between readings: offers again what the store did not take.
    void Look();
    /// The run has ended; the journal stays at hand.
    void End();
    /// The readings at hand are saved, or are not wanted any more: their journal is retired. Without one it
    /// does nothing.
    void Settle();

    [[nodiscard]] JournalHealth Health() const;

private:
    const ProgramPlace& place_;
    const MeasureSettings& settings_;
    const MeasurementArrays& arrays_;
    JournalStore& store_;
};

} // namespace quorvane
