#pragma once

#include "app/Texts.h"
#include "files/FileStore.h"
#include "files/Folders.h"

#include <optional>
#include <string>

namespace quorvane {

enum class FilesPlace {
    Named,           ///< where somebody wants them; the folder is made when it is missing
    NamedUnwritable, ///< there, though nothing can be written there
    BesideProgram,   ///< in the program's folder
    UserFolder,      ///< in the user's own, because the program's folder cannot be written
    Unwritable,      ///< in the program's folder, though nothing can be written there nor in the user's own
};

/// Where the program's own files (settings, language choice, error log) are.
struct ProgramFiles {
    std::string folder;
    FilesPlace place = FilesPlace::BesideProgram;
};

/// Folders that come into question.
struct PlaceCandidates {
    std::optional<std::string>
        home; ///< the environment variable QUORVANE_HOME; an empty one counts as not set
    std::string programFolder;
    std::string userFolder; ///< of the user's own data of this program; empty when the system knows none
};

/// Chooses the folder of the program's own files: the one that is named, else the program's, else the
/// user's. The last is made when it is needed; while it holds none of the program's files, those that stand
/// beside the program are copied into it, so an installed settings file is a user's first one.
[[nodiscard]] ProgramFiles FindProgramFiles(const PlaceCandidates& candidates, Folders& folders,
                                            FileStore& store);

/// What the operator should know of the place; empty when the files are where they are looked for.
[[nodiscard]] std::string PlaceNotice(const ProgramFiles& files, const Texts& texts);

} // namespace quorvane
