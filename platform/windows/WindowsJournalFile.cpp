#include "files/AppFiles.h"
#include "files/JournalStore.h"
#include "platform/JournalFile.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SystemFault.h"
#include "platform/windows/WidePath.h"
#include "platform/windows/WideText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quorvane {
namespace {

using Fault = std::optional<FileFault>;

/// Whoever wants to write, as another program with this journal would, is refused: that is the lock.
Handle OpenLocked(const std::string& path, DWORD disposition)
{
    return Handle(::CreateFileW(WidePath(path).c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                                nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

Fault ReadAll(const Handle& file, std::string& bytes)
{
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(file.Get(), &size))
        return LastFault();
    if (static_cast<std::uint64_t>(size.QuadPart) > kLargestFile)
        return FaultOf(ERROR_FILE_TOO_LARGE);
    std::array<char, 65536> block;
    for (;;) {
        DWORD count = 0;
        if (!::ReadFile(file.Get(), block.data(), static_cast<DWORD>(block.size()), &count, nullptr))
            return LastFault();
        if (count == 0)
            return std::nullopt;
        bytes.append(block.data(), count);
    }
}

class WindowsJournalFile final : public JournalFile {
public:
    Fault Create(const std::string& path) override
    {
        constexpr int kMostNames = 1000;
        for (int number = 1; number <= kMostNames; ++number) {
            path_ = NumberedJournal(path, number);
            file_ = OpenLocked(path_, CREATE_NEW);
            if (file_.IsOpen())
                return std::nullopt;
            if (::GetLastError() != ERROR_FILE_EXISTS)
                return LastFault();
        }
        return FaultOf(ERROR_FILE_EXISTS);
    }

    Fault Open(const std::string& path, std::string& bytes) override
    {
        bytes.clear();
        path_ = path;
        file_ = OpenLocked(path, OPEN_EXISTING);
        Fault fault = file_.IsOpen() ? ReadAll(file_, bytes) : LastFault();
        if (fault) {
            file_.Close();
            bytes.clear();
        }
        return fault;
    }

    Appended Append(std::string_view bytes) override
    {
        LARGE_INTEGER const nowhere{};
        DWORD count = 0;
        if (!::SetFilePointerEx(file_.Get(), nowhere, nullptr, FILE_END) ||
            !::WriteFile(file_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr))
            return {count, LastFault()};
        return {count, std::nullopt};
    }

    Fault CutTo(std::uint64_t size) override
    {
        LARGE_INTEGER end{};
        end.QuadPart = static_cast<LONGLONG>(size);
        const bool cut =
            ::SetFilePointerEx(file_.Get(), end, nullptr, FILE_BEGIN) && ::SetEndOfFile(file_.Get());
        return cut ? Fault{} : LastFault();
    }

    Fault Flush() override { return ::FlushFileBuffers(file_.Get()) ? Fault{} : LastFault(); }

    /// Closed first: the system does not rename what is open. Scanners may hold it for a moment then.
    Fault Retire(const std::string& kept) override
    {
        constexpr int kTries = 10;
        constexpr DWORD kPauseMs = 30;
        file_.Close();
        const std::wstring from = WidePath(path_);
        for (int i = 1;; ++i) {
            const bool done =
                kept.empty() ? ::DeleteFileW(from.c_str())
                             : ::MoveFileExW(from.c_str(), WidePath(kept).c_str(), MOVEFILE_REPLACE_EXISTING);
            if (done)
                return std::nullopt;
            if (i == kTries)
                return LastFault();
            ::Sleep(kPauseMs);
        }
    }

    void Close() override { file_.Close(); }

private:
    std::string path_;
    Handle file_;
};

class WindowsJournalFiles final : public JournalFiles {
public:
    std::unique_ptr<JournalFile> Make() const override { return std::make_unique<WindowsJournalFile>(); }

    std::vector<std::string> LeftOver(const std::string& folder) const override
    {
        std::vector<std::string> paths;
        const std::string pattern = FileInFolder(folder, std::string("*").append(kJournalEnding));
        WIN32_FIND_DATAW found{};
        const HANDLE search = ::FindFirstFileW(WidePath(pattern).c_str(), &found);
        if (search == INVALID_HANDLE_VALUE)
            return paths;
        do {
            std::string path = FileInFolder(folder, Utf8(found.cFileName));
            if (path.ends_with(kJournalEnding) && OpenLocked(path, OPEN_EXISTING).IsOpen())
                paths.push_back(std::move(path));
        } while (::FindNextFileW(search, &found));
        ::FindClose(search);
        SortNewestFirst(paths);
        return paths;
    }
};

} // namespace

std::shared_ptr<const JournalFiles> SystemJournalFiles()
{
    return std::make_shared<WindowsJournalFiles>();
}

} // namespace quorvane
