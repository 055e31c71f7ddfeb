#include "stored/FolderChoice.h"

namespace quorvane {
namespace {

constexpr std::size_t kLetterAndColon = 2;

char Capital(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameLetter(std::string_view folder, std::string_view drive)
{
    return HasDriveLetter(folder) && HasDriveLetter(drive) && Capital(folder[0]) == Capital(drive[0]);
}

} // namespace

bool HasDriveLetter(std::string_view path)
{
    return path.size() >= kLetterAndColon && path[1] == ':' && Capital(path[0]) >= 'A' &&
           Capital(path[0]) <= 'Z';
}

bool LiesIn(std::string_view folder, std::string_view above)
{
    return !above.empty() && folder.starts_with(above) &&
           (folder.size() == above.size() || above.back() == '/' || folder[above.size()] == '/');
}

std::optional<std::size_t> DriveOf(std::string_view folder, std::span<const Drive> drives)
{
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < drives.size(); ++i) {
        const std::string_view path = drives[i].path;
        if (SameLetter(folder, path))
            return i;
        if (!HasDriveLetter(path) && LiesIn(folder, path) &&
            (!found || path.size() > drives[*found].path.size()))
            found = i;
    }
    return found;
}

std::optional<std::string> FolderChoice::Open()
{
    if (!Chooses())
        return std::nullopt;
    before_ = settings_.DefaultFolder;
    return drives_.IsFolder(before_) ? std::optional(before_) : std::nullopt;
}

bool FolderChoice::DirectoryChanged(const std::string& folder)
{
    if (Chooses())
        settings_.DefaultFolder = folder;
    return Chooses();
}

std::optional<std::string> FolderChoice::Accept() const
{
    return Chooses() ? std::optional(settings_.DefaultFolder) : std::nullopt;
}

std::optional<std::string> FolderChoice::Cancel()
{
    if (Chooses())
        settings_.DefaultFolder = before_;
    return Accept();
}

} // namespace quorvane
