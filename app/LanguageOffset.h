#pragma once

#include "resources/StringTable.h"

#include <cstdint>
#include <string_view>

namespace quorvane {

/// What `LanguageMode` says: the system's own language, or English.
inline constexpr std::int16_t kOwnLanguageMode = 0;
inline constexpr std::int16_t kEnglishMode = 1;

/// The number that is added to every text number: 0 for the table in the system's language, 10000 for the
/// English one. Names are compared exactly.
///
/// @param mode                as `LanguageMode`
/// @param systemLanguageName  English name of the system's language
/// @param current             the result for every other mode
[[nodiscard]] std::int16_t LanguageOffsetFor(std::int16_t mode, std::string_view systemLanguageName,
                                             std::int16_t current);

/// The language of the texts at offset 0: Japanese on a Japanese system, else English.
[[nodiscard]] TableLanguage TableLanguageFor(std::string_view systemLanguageName);

} // namespace quorvane
