#include "platform/windows/WindowsFolders.h"

#include "platform/windows/Handle.h"
#include "platform/windows/WidePath.h"

namespace quorvane {
namespace {

bool IsFolder(const std::wstring& path)
{
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// A new folder gets the rights of the one above it; those of a user's profile are the user's.
bool MakeWide(const std::wstring& path)
{
    if (::CreateDirectoryW(path.c_str(), nullptr))
        return true;
    const bool aboveIsMissing = ::GetLastError() == ERROR_PATH_NOT_FOUND;
    const std::size_t end = path.find_last_of(L"\\/");
    if (aboveIsMissing && end != std::wstring::npos && MakeWide(path.substr(0, end)))
        ::CreateDirectoryW(path.c_str(), nullptr);
    return IsFolder(path); // it was there, or another program has just made it
}

} // namespace

bool WindowsFolders::CanWrite(const std::string& folder) const
{
    constexpr int kMostNames = 1000; // left by a crash, under process numbers that come round again
    const std::string stem = folder + "\\quorvane-" + std::to_string(::GetCurrentProcessId()) + '-';
    for (int i = 0; i < kMostNames; ++i) {
        const std::wstring path = WidePath(stem + std::to_string(i) + ".tmp");
        const Handle file(::CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
        if (file.IsOpen())
            return true;
        if (::GetLastError() != ERROR_FILE_EXISTS)
            return false;
    }
    return false;
}

std::optional<std::uintmax_t> WindowsFolders::FreeSpace(const std::string& folder) const
{
    ULARGE_INTEGER bytes{};
    if (!::GetDiskFreeSpaceExW(WidePath(folder).c_str(), &bytes, nullptr, nullptr))
        return std::nullopt;
    return bytes.QuadPart;
}

bool WindowsFolders::Make(const std::string& folder)
{
    return MakeWide(WidePath(folder));
}

} // namespace quorvane
