#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "files/JournalStore.h"
#include "measure/JournalText.h"
#include "measure/MeasurementArrays.h"
#include "measure/RunJournal.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// A run that ended with its program, as its journal tells it.
struct LeftOverRun {
    std::string path; ///< of the journal, UTF-8
    LocalMoment start{};
    LocalMoment last{};        ///< of its newest reading; the start when there is none
    std::int32_t readings = 0; ///< that can be restored, at least 1
    std::int32_t damaged = 0;  ///< records in the middle of the journal that cannot be read and are left out
    std::int32_t gaps = 0;
    bool simulated = false;
};

/// What became of the look at one journal.
struct JournalLook {
    std::optional<LeftOverRun> run; ///< nothing without a reading
    bool worthless = false; ///< whole as far as it goes, but without a reading: nothing is lost with it
    std::optional<FileFault> fault;           ///< why the file could not be read
    JournalState state = JournalState::Empty; ///< of what could be read
};

/// A journal that tells of no run.
struct UnreadableJournal {
    std::string path; ///< where it is now, UTF-8
    JournalState state = JournalState::Foreign;
};

/// Brings readings back that no data file holds.
class JournalRecovery {
public:
    JournalRecovery(ApplicationState& state, MeasurementArrays& arrays, JournalStore& store,
                    RunJournal& journal);

    /// The newest left-over run that was not looked at before, at hand from now on. A journal without a
    /// reading is retired without a word; one that another program has is passed over; one that tells
    /// nothing is set aside.
    [[nodiscard]] std::optional<LeftOverRun> Next();
    /// Looks at one journal, whatever its name. It is at hand from now on if it tells of a run or is
    /// worthless, and is let go again otherwise.
    [[nodiscard]] JournalLook LookAt(const std::string& path);
    /// The run of the last look becomes the readings at hand, as if it had been stopped by the operator:
    /// `DataPresent` 1, `DataSaved` 0. Its journal stays until they are settled.
    void Restore();
    /// The run of the last look is not wanted: its journal is retired.
    void Discard();
    /// The run of the last look is left for another time.
    void Leave();

    /// What `Next` could make nothing of, so far: somebody should know.
    [[nodiscard]] const std::vector<UnreadableJournal>& Unreadable() const { return unreadable_; }

private:
    void SetAside(const std::string& path, JournalState state);

    ApplicationState& state_;
    MeasurementArrays& arrays_;
    JournalStore& store_;
    RunJournal& journal_;
    std::vector<std::string> lookedAt_;
    std::vector<UnreadableJournal> unreadable_;
    JournalContents contents_; ///< of the run of the last look
    bool atHand_ = false;      ///< that run's journal
};

} // namespace quorvane
