#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// A path from UTF-8, as the system's calls take it whatever its length: one that is long, or would be with a
/// file name of this program behind it, becomes absolute and gets the sign "\\?\", with which the system
/// takes more than 260 characters. Shorter ones, devices and what has the sign already stay as they are.
[[nodiscard]] std::wstring WidePath(std::string_view utf8);

/// Whether the path is one that only calls which know the sign "\\?\" can take.
[[nodiscard]] bool HasLongSign(std::wstring_view path);

} // namespace quorvane
