#include "files/OpenCommand.h"

#include "files/DataFile.h"
#include "files/FileFaultText.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <string_view>
#include <utility>

namespace quorvane {
namespace {

/// A spreadsheet that writes UTF-8 says so in front of the text.
std::string Utf8Text(std::string_view bytes, const CodePage& codePage)
{
    if (bytes.starts_with(kUtf8Mark))
        return std::string(bytes.substr(kUtf8Mark.size()));
    return codePage.ToUtf8(bytes);
}

} // namespace

OpenResult OpenCommand::OpenDataFile(const Replaced& replaced)
{
    const std::optional<std::string> path =
        world_.prompts.AskOpenName({.filter = DataFileFilter(world_.texts),
                                    .filterIndex = kDataFileFilterIndex,
                                    .folder = state_.DefaultFolder});
    return path ? OpenPath(*path, replaced) : OpenResult::Cancelled;
}

OpenResult OpenCommand::OpenPath(const std::string& path, const Replaced& replaced)
{
    DataFileContents contents;
    if (const auto reason = Read(path, contents)) {
        Tell(world_.texts[kNotLoadedText] + "\r\n" + *reason, Icon::Critical);
        return OpenResult::Failed;
    }
    const DatingProblem problem = DateReadings(contents.arrays, state_, world_.locale, world_.clock.Now());
    arrays_ = std::move(contents.arrays);
    state_.SampleCount = contents.count;
    state_.DataPresent = 1;
    state_.DataSaved = 1;
    replaced(path);
    if (problem == DatingProblem::None)
        return OpenResult::Opened;
    Tell(world_.texts[problem == DatingProblem::Date ? kBadDateText : kBadTimeText], Icon::Exclamation);
    return OpenResult::OpenedUndated;
}

std::optional<std::string> OpenCommand::Read(const std::string& path, DataFileContents& contents) const
{
    if (world_.store.Size(path).value_or(0) > kLargestDataFile)
        return Reason({.kind = DataFileFaultKind::TooLarge});
    std::string bytes;
    if (const auto fault = world_.store.ReadWhole(path, bytes))
        return FaultReason(*fault, world_.texts);
    if (const auto fault = ReadDataFile(Utf8Text(bytes, world_.codePage), contents))
        return Reason(*fault);
    return std::nullopt;
}

std::string OpenCommand::Reason(const DataFileFault& fault) const
{
    const Texts& texts = world_.texts;
    switch (fault.kind) {
    case DataFileFaultKind::NotADataFile:
        break;
    case DataFileFaultKind::BadLine:
        return FilledIn(texts[kDataLineText], std::to_string(fault.line));
    case DataFileFaultKind::FewerRows:
        return FilledIn(FilledIn(texts[kDataFewerRowsText], std::to_string(fault.present)),
                        std::to_string(fault.announced));
    case DataFileFaultKind::MoreRows:
        return FilledIn(texts[kDataMoreRowsText], std::to_string(fault.announced));
    case DataFileFaultKind::TooLarge:
        return FilledIn(texts[kDataTooLargeText], std::to_string(kMaxSamples));
    }
    return texts[kNotADataFileText];
}

void OpenCommand::Tell(std::string text, Icon icon)
{
    world_.prompts.Show({.text = std::move(text), .icon = icon});
}

} // namespace quorvane
