#include "platform/windows/WidePath.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace quorvane {
namespace {

constexpr std::wstring_view kLongSign = LR"(\\?\)";
constexpr std::wstring_view kLongShareSign = LR"(\\?\UNC\)";
constexpr std::wstring_view kDeviceSign = LR"(\\.\)";
constexpr std::wstring_view kShareSign = LR"(\\)";

// The system's bound for folders is 248, and a temporary file's name takes up to 35.
constexpr std::size_t kLongestPlainPath = 200;

/// Absolute, with the system's separators and without "." and ".."; behind the sign nothing is done about
/// those.
std::wstring Absolute(const std::wstring& path)
{
    std::wstring full(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

} // namespace

bool HasLongSign(std::wstring_view path)
{
    return path.starts_with(kLongSign);
}

std::wstring WidePath(std::string_view utf8)
{
    std::wstring path = Wide(utf8);
    if (path.empty() || HasLongSign(path))
        return path;
    const std::wstring full = Absolute(path);
    if (full.size() <= kLongestPlainPath || full.starts_with(kDeviceSign))
        return path;
    if (full.starts_with(kShareSign))
        return std::wstring(kLongShareSign).append(full, kShareSign.size());
    return std::wstring(kLongSign).append(full);
}

} // namespace quorvane
