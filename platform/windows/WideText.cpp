#include "platform/windows/WideText.h"

#include <array>
#include <windows.h>

namespace quorvane {

std::wstring WideFrom(unsigned codePage, std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    const int length = ::MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    ::MultiByteToWideChar(codePage, 0, bytes.data(), size, wide.data(), length);
    return wide;
}

std::wstring Wide(std::string_view utf8)
{
    return WideFrom(CP_UTF8, utf8);
}

std::string Utf8(std::wstring_view wide)
{
    const int size = static_cast<int>(wide.size());
    const int length = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

std::string ReasonOf(unsigned long error)
{
    std::array<wchar_t, 512> text{};
    const DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                          error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    std::string reason = Utf8({text.data(), length});
    reason.erase(reason.find_last_not_of(" \r\n") + 1);
    return reason.empty() ? "System error " + std::to_string(error) : reason;
}

} // namespace quorvane
