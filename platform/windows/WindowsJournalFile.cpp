#include "files/AppFiles.h"
#include "files/JournalStore.h"
#include "platform/JournalFile.h"
#include "platform/windows/Handle.h"
#include "platform/windows/ReadAll.h"
#include "platform/windows/SystemFault.h"
#include "platform/windows/WidePath.h"
#include "platform/windows/WideText.h"

#include <algorithm>
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

/// One that is there. Where nothing may be written, nobody else writes it either, and reading is enough.
Handle OpenPresent(const std::string& path)
{
    Handle file = OpenLocked(path, OPEN_EXISTING);
    const DWORD error = file.IsOpen() ? ERROR_SUCCESS : ::GetLastError();
    if (error == ERROR_ACCESS_DENIED || error == ERROR_WRITE_PROTECT)
        file = Handle(::CreateFileW(WidePath(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file;
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
        file_ = OpenPresent(path);
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

    /// Nobody can remove or rename it while it is open, but its disk may go.
    bool StillThere() const override
    {
        return ::GetFileAttributesW(WidePath(path_).c_str()) != INVALID_FILE_ATTRIBUTES;
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
            if (path.ends_with(kJournalEnding) && OpenPresent(path).IsOpen())
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
