#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// English name of the language of a locale name: "ja_JP.UTF-8" is "Japanese".
/// @return "English" for "", "C" and "POSIX"; the language code itself when it is not known
[[nodiscard]] std::string LanguageName(std::string_view localeName);

} // namespace quorvane
