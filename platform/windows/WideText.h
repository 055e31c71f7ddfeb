#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// UTF-8 to the system's UTF-16 and back; what is not valid becomes the replacement character.
[[nodiscard]] std::wstring Wide(std::string_view utf8);
[[nodiscard]] std::string Utf8(std::wstring_view wide);

/// Text in any code page of the system to UTF-16.
[[nodiscard]] std::wstring WideFrom(unsigned codePage, std::string_view bytes);

/// The system's words for an error of GetLastError, UTF-8, without the line end.
[[nodiscard]] std::string ReasonOf(unsigned long error);

} // namespace quorvane
