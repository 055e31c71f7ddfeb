#include "options/LanguageFile.h"

#include "files/AppFiles.h"
#include "files/NumberText.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr std::string_view kKey = "Language ="; // the key of a line reaches to its first "="

} // namespace

std::int16_t LanguageModeIn(std::string_view bytes, std::int16_t mode)
{
    while (!bytes.empty()) {
        // CR LF makes an empty line more, which says nothing.
        const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
        const std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (!line.starts_with(kKey))
            continue;
        if (const auto number = LeadingNumberInRange(line.substr(kKey.size())))
            mode = RoundToInt16(*number).value_or(mode);
    }
    return mode;
}

void LoadLanguageMode(const FileStore& store, const std::string& folder, std::int16_t& mode)
{
    std::string bytes;
    if (!store.ReadWhole(FileInFolder(folder, kLanguageFileName), bytes))
        mode = LanguageModeIn(bytes, mode);
}

std::optional<FileFault> SaveLanguageMode(FileStore& store, const std::string& folder, std::int16_t mode)
{
    const std::string line = std::string(kKey) + BlankedText(mode) + "\r\n";
    return store.Replace(FileInFolder(folder, kLanguageFileName), line);
}

} // namespace quorvane
