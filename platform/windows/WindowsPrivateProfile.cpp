#include "platform/windows/WindowsPrivateProfile.h"

#include "platform/windows/SystemFault.h"
#include "platform/windows/WidePath.h"
#include "platform/windows/WideText.h"

#include <array>
#include <windows.h>

namespace quorvane {
namespace {

/// The calls look for a bare name in the system's folder, and not every one takes "/".
std::wstring FullPath(const std::string& path)
{
    const std::wstring wide = Wide(path);
    std::wstring full(::GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(::GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

} // namespace

std::string WindowsPrivateProfile::ReadIniValue(std::string_view section, std::string_view key,
                                                const std::string& path) const
{
    if (HasLongSign(WidePath(path)))
        return longPaths_.ReadIniValue(section, key, path);
    std::array<wchar_t, kMostCharacters + 1> value{};
    const DWORD length =
        ::GetPrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), L"", value.data(),
                                   static_cast<DWORD>(value.size()), FullPath(path).c_str());
    return Utf8({value.data(), length});
}

std::optional<FileFault> WindowsPrivateProfile::WriteIniValue(std::string_view section, std::string_view key,
                                                              std::string_view value, const std::string& path)
{
    if (HasLongSign(WidePath(path)))
        return longPaths_.WriteIniValue(section, key, value, path);
    const std::wstring file = FullPath(path);
    if (::WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), Wide(value).c_str(),
                                     file.c_str()) == FALSE)
        return LastFault();
    return std::nullopt;
}

} // namespace quorvane
