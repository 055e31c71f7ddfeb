#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "app/ProgramVersion.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "files/CodePage.h"
#include "files/FileStore.h"
#include "measure/MeasurementArrays.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace quorvane {

enum class SaveResult {
    NothingToSave, ///< there is no finished run
    Cancelled,     ///< by the operator
    Saved,
    Failed, ///< the operator has been told; the readings are still unsaved
};

/// What a save needs of the world.
struct SaveSurroundings {
    FileStore& store;
    const CodePage& codePage;
    const LocaleItems& locale;
    const LocalClock& clock;
    Prompts& prompts;
    const Texts& texts;
    ProgramVersion version;
    std::function<void()> saved{}; ///< called when the readings are in a file
};

/// Saves the readings of the last run as a data file of the full layout, dated with the day of saving.
/// Readings that were opened keep their file's date, and the short layout when they have no averages.
class SaveCommand {
public:
    SaveCommand(ApplicationState& state, const MeasurementArrays& arrays, SaveSurroundings surroundings)
        : state_(state), arrays_(arrays), world_(std::move(surroundings))
    {
    }

    /// Asks for the file's name, saves, and tells the operator of a failure.
    SaveResult SaveMeasurement();

    /// Saves to `path` (UTF-8) without a word. `DataSaved` becomes 1 when the file is complete.
    [[nodiscard]] std::optional<FileFault> SaveTo(const std::string& path);

    /// Tells the operator that the data file cannot be written, and why.
    void TellFailure(const FileFault& fault);

    /// Saves to the first of `folders` (UTF-8, an empty one is left out) that takes it, under a new name made
    /// of date and time: so that nothing measured is lost when the chosen place fails.
    /// @return the path, or nothing when no folder took it
    [[nodiscard]] std::optional<std::string> Rescue(std::span<const std::string> folders);

private:
    ApplicationState& state_;
    const MeasurementArrays& arrays_;
    SaveSurroundings world_;
};

} // namespace quorvane
