#pragma once

#include "files/CodePage.h"

namespace quorvane {

/// ISO 8859-1: enough to see which texts are converted, and that they are converted once.
class FakeCodePage : public CodePage {
public:
    std::string FromUtf8(std::string_view text) const override
    {
        std::string bytes;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const auto lead = static_cast<unsigned char>(text[i]);
            if (lead < 0x80) {
                bytes += text[i];
            } else if ((lead == 0xC2 || lead == 0xC3) && i + 1 < text.size()) {
                bytes +=
                    static_cast<char>((lead & 3U) << 6 | (static_cast<unsigned char>(text[++i]) & 0x3FU));
            } else if (lead >=
                       0xC0) { // the lead byte of a character beyond the page; its other bytes are left out
                bytes += '?';
            }
        }
        return bytes;
    }

    std::string ToUtf8(std::string_view bytes) const override
    {
        std::string text;
        for (const char byte : bytes) {
            const auto code = static_cast<unsigned char>(byte);
            if (code < 0x80) {
                text += byte;
            } else {
                text += static_cast<char>(0xC0U | code >> 6);
                text += static_cast<char>(0x80U | (code & 0x3FU));
            }
        }
        return text;
    }
};

} // namespace quorvane
