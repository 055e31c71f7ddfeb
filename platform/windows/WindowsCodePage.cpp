#include "platform/windows/WindowsCodePage.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace quorvane {

WindowsCodePage::WindowsCodePage() : WindowsCodePage(::GetACP()) {}

std::string WindowsCodePage::FromUtf8(std::string_view text) const
{
    if (number_ == CP_UTF8)
        return std::string(text);
    const std::wstring wide = Wide(text);
    const int size = static_cast<int>(wide.size());
    // No look-alikes: a character that is not there is to be seen as missing.
    constexpr DWORD kFlags = WC_NO_BEST_FIT_CHARS;
    const int length = ::WideCharToMultiByte(number_, kFlags, wide.data(), size, nullptr, 0, "?", nullptr);
    std::string bytes(static_cast<std::size_t>(length), '\0');
    ::WideCharToMultiByte(number_, kFlags, wide.data(), size, bytes.data(), length, "?", nullptr);
    return bytes;
}

std::string WindowsCodePage::ToUtf8(std::string_view bytes) const
{
    return Utf8(WideFrom(number_, bytes));
}

} // namespace quorvane
