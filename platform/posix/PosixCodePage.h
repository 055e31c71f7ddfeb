#pragma once

#include "files/CodePage.h"

namespace quorvane {

/// Files are written in UTF-8 here.
class PosixCodePage final : public CodePage {
public:
    [[nodiscard]] std::string FromUtf8(std::string_view text) const override { return std::string(text); }
    [[nodiscard]] std::string ToUtf8(std::string_view bytes) const override { return std::string(bytes); }
};

} // namespace quorvane
