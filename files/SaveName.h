#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// One choice of a file dialog's "Files of type".
struct FileFilter {
    std::string description;           ///< as shown
    std::vector<std::string> patterns; ///< "*.csv"; "*" for every file
};

/// The filters of a text "description|pattern|description|pattern|", where patterns may be several joined by
/// ";" and "*.*" means every file, also one without a dot. A last description without its pattern is left
/// out.
[[nodiscard]] std::vector<FileFilter> FileFilters(std::string_view text);

/// `path` with `extension` (without its dot) behind a file name that has none; "/" separates folders. Dots at
/// the beginning of a name (hidden files) begin no extension, and a name that ends in a dot waits for its
/// extension behind it. An empty extension adds nothing.
[[nodiscard]] std::string WithExtension(std::string path, std::string_view extension);

} // namespace quorvane
