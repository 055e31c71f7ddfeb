#pragma once

#include "files/FileStore.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// The file in the program's folder that holds the operator's choice of language.
inline constexpr std::string_view kLanguageFileName = "Language.dat";

/// Takes the language choice out of a file's bytes: the number behind "Language =" (that, with its one blank,
/// at the very start of a line), rounded to a whole one; 0 when there is no number. The last such line
/// counts.
///
/// @return `mode` as it was when no line tells, or the number does not fit into 16 bits
[[nodiscard]] std::int16_t LanguageModeIn(std::string_view bytes, std::int16_t mode);

/// Reads the choice from the file in `folder`. A file that is missing or cannot be read leaves `mode`.
void LoadLanguageMode(const FileStore& store, const std::string& folder, std::int16_t& mode);

/// Writes the file in `folder` anew: "Language =", `mode` as number text with its leading blank, CR LF.
/// @return why not, or nothing when it is written
[[nodiscard]] std::optional<FileFault> SaveLanguageMode(FileStore& store, const std::string& folder,
                                                        std::int16_t mode);

} // namespace quorvane
