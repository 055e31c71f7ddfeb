#pragma once

#include "files/CodePage.h"

namespace quorvane {

/// The code page that the system is set to for programs without Unicode.
class WindowsCodePage final : public CodePage {
public:
    [[nodiscard]] std::string FromUtf8(std::string_view text) const override;
    [[nodiscard]] std::string ToUtf8(std::string_view bytes) const override;
};

} // namespace quorvane
