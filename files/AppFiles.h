#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quorvane {

/// A path from UTF-8. The only way paths are made from text: the path's own constructor takes a narrow text
/// for the system's code page on Windows.
[[nodiscard]] std::filesystem::path PathFromUtf8(std::string_view text);

/// The text of a path, UTF-8.
[[nodiscard]] std::string Utf8FromPath(const std::filesystem::path& path);

/// The path, UTF-8, of the file `name` in `folder`, with the system's separator between them unless the
/// folder ends in one ("C:\", "/").
[[nodiscard]] std::string FileInFolder(const std::string& folder, std::string_view name);

} // namespace quorvane
