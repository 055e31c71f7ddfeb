#pragma once

#include "files/FileStore.h"

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// Private-profile files: lines "key=value" below lines "[section]", read and written key by key, whoever
/// else keeps things in the same file. Sections and keys are found whatever their case; of several alike the
/// first counts. Texts and paths are UTF-8; the files are in the user's code page.
class PrivateProfile {
public:
    virtual ~PrivateProfile() = default;
    /// The value without the blanks around it and without a pair of quotation marks around it, cut at
    /// `kMostCharacters` and at its first NUL; empty when the key, the section or the file is missing.
    [[nodiscard]] virtual std::string ReadIniValue(std::string_view section, std::string_view key,
                                                   const std::string& path) const = 0;
    /// Replaces the value, or makes key, section or file; all else in the file stays as it was.
    /// @return why it failed, or nothing
    [[nodiscard]] virtual std::optional<FileFault> WriteIniValue(std::string_view section,
                                                                 std::string_view key, std::string_view value,
                                                                 const std::string& path) = 0;

    /// The buffer that a value is read into takes 1024 characters, the NUL behind it included.
    static constexpr std::size_t kMostCharacters = 1023;
};

} // namespace quorvane
