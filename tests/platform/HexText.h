#pragma once

#include <charconv>
#include <string>
#include <string_view>

namespace quorvane {

/// Bytes as one word without blanks: "x" and two digits for each.
inline std::string HexText(std::string_view bytes)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "x";
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text += kDigits[value / 16];
        text += kDigits[value % 16];
    }
    return text;
}

inline std::string BytesOfHex(std::string_view text)
{
    std::string bytes;
    for (std::size_t at = 1; at + 2 <= text.size(); at += 2) {
        unsigned value = 0;
        std::from_chars(text.data() + at, text.data() + at + 2, value, 16);
        bytes += static_cast<char>(value);
    }
    return bytes;
}

} // namespace quorvane
