#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "files/CodePage.h"
#include "files/DataFileReader.h"
#include "files/FileStore.h"
#include "measure/MeasurementArrays.h"

#include <functional>
#include <string>

namespace quorvane {

enum class OpenResult {
    Cancelled, ///< by the operator
    Failed,    ///< the operator has been told; the earlier readings are untouched
    Opened,
    OpenedUndated, ///< all of it but the chart can be shown; the operator has been told
};

/// What opening a file needs of the world.
struct OpenSurroundings {
    const FileStore& store;
    const CodePage& codePage;
    const LocaleItems& locale;
    const LocalClock& clock;
    Prompts& prompts;
    const Texts& texts;
};

/// Opens a data file in place of the readings that are there; whether those are still to be saved is asked
/// before. `DataPresent` and `DataSaved` are 1 then, `TotalSamples` stays.
class OpenCommand {
public:
    /// Called when the readings have been replaced by those of the file at `path`, before anything else is
    /// said or served: who shows the arrays has to look at them anew.
    using Replaced = std::function<void(const std::string& path)>;

    OpenCommand(ApplicationState& state, MeasurementArrays& arrays, OpenSurroundings surroundings)
        : state_(state), arrays_(arrays), world_(surroundings)
    {
    }

    /// Asks for the file and opens it.
    OpenResult OpenDataFile(const Replaced& replaced);

    /// Opens the file at `path` (UTF-8), of whatever kind it is.
    OpenResult OpenPath(const std::string& path, const Replaced& replaced);

private:
    /// @return why the file is not opened, for the operator
    [[nodiscard]] std::optional<std::string> Read(const std::string& path, DataFileContents& contents) const;
    [[nodiscard]] std::string Reason(const DataFileFault& fault) const;
    void Tell(std::string text, Icon icon);

    ApplicationState& state_;
    MeasurementArrays& arrays_;
    OpenSurroundings world_;
};

} // namespace quorvane
