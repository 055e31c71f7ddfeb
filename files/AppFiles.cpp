#include "files/AppFiles.h"

namespace quorvane {

std::filesystem::path PathFromUtf8(std::string_view text)
{
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

std::string Utf8FromPath(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string FileInFolder(const std::string& folder, std::string_view name)
{
    constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);
    // Windows takes "/" for a separator as well as its own; where "/" is the system's own, "\" is a letter.
    const bool separated = folder.ends_with(kSeparator) || folder.ends_with('/');
    std::string path = folder;
    if (!separated)
        path += kSeparator;
    path += name;
    return path;
}

} // namespace quorvane
