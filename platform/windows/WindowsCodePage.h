#pragma once

#include "files/CodePage.h"

namespace quorvane {

/// A code page of the system.
class WindowsCodePage final : public CodePage {
public:
    WindowsCodePage(); ///< the one that the system is set to for programs without Unicode
    explicit WindowsCodePage(unsigned number) : number_(number) {}

    [[nodiscard]] std::string FromUtf8(std::string_view text) const override;
    [[nodiscard]] std::string ToUtf8(std::string_view bytes) const override;

private:
    unsigned number_;
};

} // namespace quorvane
