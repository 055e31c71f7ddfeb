#pragma once

#include "app/ApplicationState.h"
#include "stored/DriveFolders.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quorvane {

/// Whether `path` begins with a drive letter and its colon, as only Windows has them.
[[nodiscard]] bool HasDriveLetter(std::string_view path);

/// Whether `folder` is `above` or lies in it. For paths without drive letters, so a backslash is part of a
/// name.
[[nodiscard]] bool LiesIn(std::string_view folder, std::string_view above);

/// The place in `drives` of the one that `folder` is on. A drive letter is compared by the first two
/// characters, without case; elsewhere it is the longest drive that `folder` begins with, up to a separator.
/// @return nothing when it is on none of them
[[nodiscard]] std::optional<std::size_t> DriveOf(std::string_view folder, std::span<const Drive> drives);

/// The folder chooser's rule. With any other mode than 1 it neither reads nor changes the data folder.
class FolderChoice {
public:
    FolderChoice(ComputerSettings& settings, const FolderChooserMode& mode, const DriveFolders& drives)
        : settings_(settings), mode_(mode), drives_(drives)
    {
    }

    /// The chooser opens: keeps a copy of the data folder.
    /// @return the folder that tree and drives go to, as a change of directory; nothing: they stay at their
    ///         default and nothing changes
    [[nodiscard]] std::optional<std::string> Open();

    /// The operator has gone to `folder`: it is the data folder at once.
    /// @return whether it is to be shown as such
    [[nodiscard]] bool DirectoryChanged(const std::string& folder);

    /// OK. @return what goes into the calling dialog's box, if anything
    [[nodiscard]] std::optional<std::string> Accept() const;

    /// Cancel: the data folder is again what it was. @return as of `Accept`
    [[nodiscard]] std::optional<std::string> Cancel();

private:
    [[nodiscard]] bool Chooses() const { return mode_.ChooserMode == 1; }

    ComputerSettings& settings_;
    const FolderChooserMode& mode_;
    const DriveFolders& drives_;
    std::string before_;
};

} // namespace quorvane
