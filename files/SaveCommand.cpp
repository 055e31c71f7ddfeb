#include "files/SaveCommand.h"

#include "files/AppFiles.h"
#include "files/DataFile.h"
#include "files/FileFaultText.h"
#include "instrument/DateTimeText.h"
#include "resources/SystemTexts.h"

namespace quorvane {

SaveResult SaveCommand::SaveMeasurement()
{
    if (state_.DataPresent != 1)
        return SaveResult::NothingToSave;
    const std::optional<std::string> path =
        world_.prompts.AskSaveName({.filter = DataFileFilter(world_.texts),
                                    .filterIndex = kDataFileFilterIndex,
                                    .overwritePrompt = true,
                                    .defaultName = "",
                                    .folder = state_.DefaultFolder,
                                    .extensions = {"", "csv"}});
    if (!path)
        return SaveResult::Cancelled;
    if (state_.DataPresent != 1) // a run began while the dialog was open; its readings are not finished
        return SaveResult::NothingToSave;
    if (const auto fault = SaveTo(*path)) {
        TellFailure(*fault);
        return SaveResult::Failed;
    }
    return SaveResult::Saved;
}

std::optional<FileFault> SaveCommand::SaveTo(const std::string& path)
{
    // The readings of an opened file were not taken today, even where nobody knows when they were.
    const bool ownRun = arrays_.FileDate.empty() && arrays_.Dated;
    const std::string date = ownRun ? SystemDateText(world_.clock.Now(), world_.locale) : arrays_.FileDate;
    const std::int16_t layout = arrays_.Averages ? kFullLayout : kShortLayout;
    const std::string factor = arrays_.ExtraField.size() > 1 ? arrays_.ExtraField[1] : "";
    const DataFileContext context = {world_.store,
                                     world_.codePage,
                                     arrays_,
                                     {.decimalSign = world_.locale.DecimalSign(), .version = world_.version}};
    auto fault = WriteDataFile(path, date, factor, state_.SampleCount, layout, context);
    if (fault)
        return fault;
    state_.DataSaved = 1;
    if (world_.saved)
        world_.saved();
    return std::nullopt;
}

std::optional<std::string> SaveCommand::Rescue(std::span<const std::string> folders)
{
    const std::string name = "Quorvane-" + FileStamp(world_.clock.Now());
    for (const std::string& folder : folders) {
        if (folder.empty())
            continue;
        std::string path = FileInFolder(folder, name + ".csv");
        for (int number = 2; world_.store.Exists(path); ++number)
            path = FileInFolder(folder, name + "-" + std::to_string(number) + ".csv");
        if (!SaveTo(path))
            return path;
    }
    return std::nullopt;
}

void SaveCommand::TellFailure(const FileFault& fault)
{
    world_.prompts.Show({.text = world_.texts[kNotSavedText] + "\r\n" + FaultReason(fault, world_.texts),
                         .icon = Icon::Critical});
}

} // namespace quorvane
