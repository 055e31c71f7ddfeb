#pragma once

namespace quorvane {

/// Whether a byte of UTF-8 begins a character; the other bytes continue one.
[[nodiscard]] constexpr bool BeginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

} // namespace quorvane
