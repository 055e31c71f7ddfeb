#include "files/ProgramFiles.h"

#include "files/AppFiles.h"
#include "resources/OwnTexts.h"

#include <algorithm>
#include <string_view>

namespace quorvane {
namespace {

constexpr std::string_view kOwnFiles[] = {"Quorvane.ini", "Language.dat", "RSErr.log"};

/// Only the first time: a file that the user has removed since then must not come back.
void CopyOwnFiles(const std::string& from, const std::string& to, FileStore& store)
{
    const auto isThere = [&](std::string_view name) { return store.Exists(FileInFolder(to, name)); };
    if (std::ranges::any_of(kOwnFiles, isThere))
        return;
    for (const std::string_view name : kOwnFiles) {
        std::string bytes;
        // What cannot be copied is missing, and a missing file is no fault anywhere.
        if (!store.ReadWhole(FileInFolder(from, name), bytes))
            static_cast<void>(store.Replace(FileInFolder(to, name), bytes));
    }
}

} // namespace

ProgramFiles FindProgramFiles(const PlaceCandidates& candidates, Folders& folders, FileStore& store)
{
    const auto& [home, programFolder, userFolder] = candidates;
    if (home && !home->empty()) {
        const bool usable = folders.Make(*home) && folders.CanWrite(*home);
        return {*home, usable ? FilesPlace::Named : FilesPlace::NamedUnwritable};
    }
    if (folders.CanWrite(programFolder))
        return {programFolder, FilesPlace::BesideProgram};
    if (userFolder.empty() || !folders.Make(userFolder) || !folders.CanWrite(userFolder))
        return {programFolder, FilesPlace::Unwritable};
    CopyOwnFiles(programFolder, userFolder, store);
    return {userFolder, FilesPlace::UserFolder};
}

std::string PlaceNotice(const ProgramFiles& files, const Texts& texts)
{
    switch (files.place) {
    case FilesPlace::UserFolder:
        return FilledIn(texts[kFilesInUserFolderText], files.folder);
    case FilesPlace::NamedUnwritable:
        return FilledIn(texts[kNamedFolderUnwritableText], files.folder);
    case FilesPlace::Unwritable:
        return FilledIn(texts[kFilesUnwritableText], files.folder);
    default:
        return {};
    }
}

} // namespace quorvane
