#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// What some editors and spreadsheets put in front of UTF-8.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// The user's single-byte (or, for Japanese, double-byte) code page, in which the program's files are
/// written.
class CodePage {
public:
    virtual ~CodePage() = default;
    /// A character that the code page cannot hold becomes "?".
    [[nodiscard]] virtual std::string FromUtf8(std::string_view text) const = 0;
    [[nodiscard]] virtual std::string ToUtf8(std::string_view bytes) const = 0;
};

} // namespace quorvane
