#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "files/JournalStore.h"
#include "measure/JournalText.h"
#include "measure/MeasurementArrays.h"

#include <cstddef>
#include <cstdint>
#include <optional>
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
    /// The readings at hand are those of a journal that the store has at hand already; nothing is added to
    /// it.
    void Adopt() { pen_.reset(); }
    /// Readings 1 to `sample` are in the arrays, and so are the gaps between them.
    void Taken(std::int32_t sample);
    /// Between readings, and after the run: offers again what the store did not take.
    void Look();
    /// The run has ended; the journal stays at hand. Takes the gaps behind the newest reading.
    void End();
    /// The readings at hand are saved, or are not wanted any more: their journal is retired, one without a
    /// reading removed. Without one it does nothing.
    void Settle();

    [[nodiscard]] JournalHealth Health() const;

private:
    void BeginFile();
    [[nodiscard]] bool OfferHead();
    [[nodiscard]] bool OfferGaps(std::int32_t before);

    const ProgramPlace& place_;
    const MeasureSettings& settings_;
    const MeasurementArrays& arrays_;
    JournalStore& store_;

    std::optional<JournalPen> pen_; ///< while a journal that was begun here is at hand
    LocalMoment start_{};           ///< of its run
    bool headOffered_ = false;      ///< and taken, as is what is counted below
    std::int32_t offered_ = 0;
    std::size_t gapsOffered_ = 0;
    std::int32_t taken_ = 0;
    bool ended_ = false;
};

/// The one journal that is kept when its readings have been settled; not a left-over one.
[[nodiscard]] std::string KeptJournal(const ProgramPlace& place);

} // namespace quorvane
