#include "platform/windows/WindowsFileStore.h"

#include "platform/windows/Handle.h"
#include "platform/windows/ReadAll.h"
#include "platform/windows/SystemFault.h"
#include "platform/windows/WidePath.h"
#include "platform/windows/WideText.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace quorvane {
namespace {

using Fault = std::optional<FileFault>;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

bool IsFolder(const std::wstring& path)
{
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

Fault OpenDiskFile(const std::wstring& path, DWORD access, DWORD disposition, Handle& file)
{
    if (IsFolder(path)) // the system would say that access is denied
        return FileFault{FileFaultKind::NotAFile, ReasonOf(ERROR_DIRECTORY)};
    Handle opened(
        ::CreateFileW(path.c_str(), access, kShareAll, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!opened.IsOpen())
        return LastFault();
    if (::GetFileType(opened.Get()) != FILE_TYPE_DISK)
        return FileFault{FileFaultKind::NotAFile, "Not a file on a disk"};
    file = std::move(opened);
    return std::nullopt;
}

Fault WriteAll(const Handle& file, std::string_view bytes)
{
    constexpr std::size_t kBlock = std::size_t{1} << 24;
    while (!bytes.empty()) {
        DWORD count = 0;
        const auto size = static_cast<DWORD>(std::min(bytes.size(), kBlock));
        if (!::WriteFile(file.Get(), bytes.data(), size, &count, nullptr))
            return LastFault();
        if (count == 0)
            return FaultOf(ERROR_DISK_FULL);
        bytes.remove_prefix(count);
    }
    return std::nullopt;
}

/// Where a symbolic link leads to; the path itself when it is none or leads nowhere.
std::wstring Followed(const std::wstring& path)
{
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    const Handle file(
        ::CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen())
        return path;
    const DWORD length = ::GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED);
    std::wstring target(length, L'\0');
    const DWORD used = ::GetFinalPathNameByHandleW(file.Get(), target.data(), length, FILE_NAME_NORMALIZED);
    if (used == 0 || used >= length)
        return path;
    target.resize(used);
    return target;
}

std::wstring FolderOf(const std::wstring& path)
{
    const std::size_t end = path.find_last_of(L"\\/:");
    return end == std::wstring::npos ? std::wstring() : path.substr(0, end + 1);
}

/// Whether a path names a stream inside a file: "10:30.csv" would be hidden in a file "10".
bool NamesStream(const std::wstring& path)
{
    const std::size_t folderEnd = path.find_last_of(L"\\/");
    const bool hasFolder = folderEnd != std::wstring::npos;
    constexpr std::size_t kDriveLength = 2; // "C:out.csv"
    return path.find(L':', hasFolder ? folderEnd : kDriveLength) != std::wstring::npos;
}

/// Asks whether a file of this name is there or could be, by trying.
Fault CheckName(const std::wstring& path)
{
    const Handle made(::CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, kShareAll, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    return made.IsOpen() || ::GetLastError() == ERROR_FILE_EXISTS ? Fault{} : LastFault();
}

/// Asks whether there is a file that may be written and replaced, and lets go of it again.
Fault CheckTarget(const std::wstring& target)
{
    if (NamesStream(target))
        return FaultOf(ERROR_INVALID_NAME);
    Handle old;
    Fault fault = OpenDiskFile(target, GENERIC_WRITE | DELETE, OPEN_EXISTING, old);
    return fault && fault->kind != FileFaultKind::NotFound ? fault : Fault{};
}

/// Tries again for a moment: scanners and folders in the cloud hold a file just after it was written.
template <typename Try>
Fault Patiently(const Try& attempt)
{
    constexpr int kTries = 10;
    constexpr DWORD kPauseMs = 30;
    for (int i = 1;; ++i) {
        Fault fault = attempt();
        const bool held =
            fault && (fault->kind == FileFaultKind::InUse || fault->kind == FileFaultKind::NoPermission);
        if (!held || i == kTries)
            return fault;
        ::Sleep(kPauseMs);
    }
}

/// A new file beside the one that it is to replace; removed unless it was kept.
class TemporaryFile {
public:
    TemporaryFile() = default;
    ~TemporaryFile()
    {
        file_.Close();
        if (!path_.empty())
            ::DeleteFileW(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    Fault Create(const std::wstring& folder)
    {
        static std::atomic<unsigned> counter{0};
        constexpr int kMostNames = 1000; // left by a crash, under process numbers that come round again
        for (int i = 0; i < kMostNames; ++i) {
            const std::wstring path = folder + L"quorvane-" + std::to_wstring(::GetCurrentProcessId()) +
                                      L'-' + std::to_wstring(counter++) + L".tmp";
            file_ = Handle(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
            if (file_.IsOpen()) {
                path_ = path;
                return std::nullopt;
            }
            if (::GetLastError() != ERROR_FILE_EXISTS)
                break;
        }
        return LastFault();
    }

    Fault Write(std::string_view bytes)
    {
        if (Fault fault = WriteAll(file_, bytes))
            return fault;
        if (!::FlushFileBuffers(file_.Get()) || !file_.Close())
            return LastFault();
        return std::nullopt;
    }

    Fault RenameTo(const std::wstring& target)
    {
        if (!::MoveFileExW(path_.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return LastFault();
        path_.clear();
        return std::nullopt;
    }

private:
    Handle file_;
    std::wstring path_;
};

} // namespace

bool WindowsFileStore::Exists(const std::string& path) const
{
    return ::GetFileAttributesW(WidePath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::optional<std::uintmax_t> WindowsFileStore::Size(const std::string& path) const
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExW(WidePath(path).c_str(), GetFileExInfoStandard, &data) ||
        (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return std::nullopt;
    return static_cast<std::uintmax_t>(data.nFileSizeHigh) << 32U | data.nFileSizeLow;
}

Fault WindowsFileStore::ReadWhole(const std::string& path, std::string& bytes) const
{
    bytes.clear();
    Handle file;
    if (Fault fault = OpenDiskFile(WidePath(path), GENERIC_READ, OPEN_EXISTING, file))
        return fault;
    return ReadAll(file, bytes);
}

Fault WindowsFileStore::Append(const std::string& path, std::string_view bytes)
{
    Handle file;
    if (Fault fault = OpenDiskFile(WidePath(path), FILE_APPEND_DATA, OPEN_ALWAYS, file))
        return fault;
    if (Fault fault = WriteAll(file, bytes))
        return fault;
    return file.Close() ? Fault{} : LastFault();
}

Fault WindowsFileStore::CheckReplace(const std::string& path) const
{
    const std::wstring target = Followed(WidePath(path));
    if (Fault fault = CheckTarget(target))
        return fault;
    TemporaryFile beside; // the system's rules of permission are best asked by trying
    if (Fault fault = beside.Create(FolderOf(target)))
        return fault;
    return CheckName(target);
}

Fault WindowsFileStore::Replace(const std::string& path, std::string_view bytes)
{
    const std::wstring target = Followed(WidePath(path));
    if (Fault fault = Patiently([&] { return CheckTarget(target); }))
        return fault;
    TemporaryFile beside;
    if (Fault fault = beside.Create(FolderOf(target)))
        return fault;
    if (Fault fault = beside.Write(bytes))
        return fault;
    return Patiently([&] { return beside.RenameTo(target); });
}

} // namespace quorvane
