#include "files/RunAdvice.h"

#include "resources/OwnTexts.h"

#include <cstdint>

namespace quorvane {
namespace {

/// A reading takes some 70 bytes in the data file and 90 in the journal, of which an older one is kept.
constexpr double kBytesPerReading = 250;
/// What other programs may write meanwhile.
constexpr double kSpareBytes = 100 * 1024.0 * 1024.0;

std::string Megabytes(double bytes)
{
    return std::to_string(static_cast<std::int64_t>(bytes / (1024.0 * 1024.0)));
}

std::string FolderAdvice(const std::string& folder, int unwritableId, double needed, const Folders& folders,
                         const Texts& texts)
{
    if (folder.empty())
        return {};
    if (!folders.CanWrite(folder))
        return texts[unwritableId] + "\r\n" + folder;
    const auto free = folders.FreeSpace(folder);
    if (!free || static_cast<double>(*free) >= needed)
        return {};
    return FilledIn(texts[kLittleSpaceText], Megabytes(static_cast<double>(*free))) + "\r\n" + folder;
}

} // namespace

std::string RunAdvice(const RunPlaces& places, double samples, const Folders& folders, const Texts& texts)
{
    const double needed = samples * kBytesPerReading + kSpareBytes;
    std::string advice = FolderAdvice(places.programFolder, kJournalUnwritableText, needed, folders, texts);
    if (places.dataFolder == places.programFolder)
        return advice;
    const std::string data =
        FolderAdvice(places.dataFolder, kDataFolderUnwritableText, needed, folders, texts);
    if (!advice.empty() && !data.empty())
        advice += "\r\n\r\n";
    return advice += data;
}

} // namespace quorvane
