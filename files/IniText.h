#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

// The text of a private-profile file, as bytes of a code page that has ASCII in its lower half. Lines end in
// CR LF, LF or CR. A section begins with a line "[name]", whatever stands behind the last "]", and ends with
// the next such line; every other line is a key up to its first "=" and a value behind it. Nobody asks for a
// key that begins with ";", which makes such lines remarks. Blanks around names and values do not count, nor
// does the case of ASCII letters in names. Of several sections of a name, and of several equal keys in it,
// only the first is looked at.

/// The value, without blanks around it and without a pair of quotation marks (both single or both double)
/// around it; it ends at its first NUL.
/// @return nothing when there is no such section or key
[[nodiscard]] std::optional<std::string_view> IniValue(std::string_view bytes, std::string_view section,
                                                       std::string_view key);

/// The text with the value in place of the old one; or with a new last line of the section, before blank
/// lines that close it; or with a new section at its end. What is new ends in CR LF, and all else stays. A
/// value ends at its first line end or NUL, for more could not be read back.
[[nodiscard]] std::string WithIniValue(std::string_view bytes, std::string_view section, std::string_view key,
                                       std::string_view value);

/// Whether lines of single bytes can be put into the text: UTF-16 and data that are no text cannot take them.
[[nodiscard]] bool IsPlainText(std::string_view bytes);

} // namespace quorvane
