#include "files/FileProfile.h"

#include "app/Utf8.h"
#include "files/IniText.h"

namespace quorvane {
namespace {

/// The first characters of a text in UTF-8. In bytes that are none, four at most count as one.
std::string FirstCharacters(std::string text, std::size_t most)
{
    constexpr int kMostContinuing = 3;
    std::size_t end = 0;
    for (std::size_t count = 0; count < most && end < text.size(); ++count) {
        ++end;
        for (int i = 0; i < kMostContinuing && end < text.size() && !BeginsCharacter(text[end]); ++i)
            ++end;
    }
    text.resize(end);
    return text;
}

/// Texts in the characters of one file.
class FileCharacters {
public:
    FileCharacters(std::string_view file, const CodePage& codePage)
        : codePage_(codePage), isUtf8_(file.starts_with(kUtf8Mark))
    {
    }
    [[nodiscard]] std::string FromUtf8(std::string_view text) const
    {
        return isUtf8_ ? std::string(text) : codePage_.FromUtf8(text);
    }
    [[nodiscard]] std::string ToUtf8(std::string_view bytes) const
    {
        return isUtf8_ ? std::string(bytes) : codePage_.ToUtf8(bytes);
    }

private:
    const CodePage& codePage_;
    bool isUtf8_;
};

} // namespace

std::string FileProfile::ReadIniValue(std::string_view section, std::string_view key,
                                      const std::string& path) const
{
    std::string bytes;
    if (files_.ReadWhole(path, bytes))
        return {};
    const FileCharacters characters(bytes, codePage_);
    const auto value = IniValue(bytes, characters.FromUtf8(section), characters.FromUtf8(key));
    return FirstCharacters(characters.ToUtf8(value.value_or("")), kMostCharacters);
}

std::optional<FileFault> FileProfile::WriteIniValue(std::string_view section, std::string_view key,
                                                    std::string_view value, const std::string& path)
{
    std::string bytes;
    if (auto fault = files_.ReadWhole(path, bytes); fault && fault->kind != FileFaultKind::NotFound)
        return fault;
    if (!IsPlainText(bytes))
        return FileFault{FileFaultKind::Other, "Not a plain text file"};
    const FileCharacters characters(bytes, codePage_);
    return files_.Replace(path, WithIniValue(bytes, characters.FromUtf8(section), characters.FromUtf8(key),
                                             characters.FromUtf8(value)));
}

} // namespace quorvane
