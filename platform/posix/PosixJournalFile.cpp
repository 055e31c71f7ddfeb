#include "files/AppFiles.h"
#include "files/JournalStore.h"
#include "platform/JournalFile.h"
#include "platform/posix/FileDescriptor.h"
#include "platform/posix/FileFault.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quorvane {
namespace {

using JournalFault = std::optional<FileFault>;

/// @return false when somebody else has it
bool LockJournal(const FileDescriptor& file)
{
    return ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

/// Whether the path still leads to the open file: between opening and locking another program may have
/// renamed or removed it.
bool StandsAt(const FileDescriptor& file, const std::string& path)
{
    struct stat open {};
    struct stat named {};
    return ::fstat(file.Get(), &open) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

/// Opens a journal that is there and locks it. Never waits, as opening a pipe would.
JournalFault OpenJournal(const std::string& path, FileDescriptor& file, struct stat& status)
{
    constexpr int kFlags = O_NONBLOCK | O_NOCTTY;
    file = OpenDescriptor(path, O_RDWR | kFlags); // a lock over a network wants writing
    if (!file.IsOpen() && (errno == EACCES || errno == EROFS))
        file = OpenDescriptor(path, O_RDONLY | kFlags);
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0)
        return FaultOf(errno);
    if (!S_ISREG(status.st_mode))
        return FileFault{FileFaultKind::NotAFile, "Not a regular file"};
    if (!LockJournal(file))
        return FileFault{FileFaultKind::InUse, {}};
    return StandsAt(file, path) ? JournalFault() : FaultOf(ENOENT);
}

JournalFault ReadAll(const FileDescriptor& file, std::string& bytes)
{
    std::array<char, 65536> block;
    for (;;) {
        const ssize_t count = ::read(file.Get(), block.data(), block.size());
        if (count == 0)
            return std::nullopt;
        if (count < 0 && errno != EINTR)
            return FaultOf(errno);
        if (count > 0)
            bytes.append(block.data(), static_cast<std::size_t>(count));
        if (bytes.size() > kLargestFile)
            return FaultOf(EFBIG);
    }
}

class PosixJournalFile final : public JournalFile {
public:
    JournalFault Create(const std::string& path) override
    {
        constexpr int kMostNames = 1000;
        for (int number = 1; number <= kMostNames; ++number) {
            path_ = NumberedJournal(path, number);
            file_ = OpenDescriptor(path_, O_RDWR | O_APPEND | O_CREAT | O_EXCL, 0666);
            if (!file_.IsOpen() && errno != EEXIST)
                return FaultOf(errno);
            if (file_.IsOpen() && LockJournal(file_) && StandsAt(file_, path_)) {
                // So that the name outlasts a power cut as well.
                quorvane::Flush(OpenDescriptor(Folder(), O_RDONLY | O_DIRECTORY));
                return std::nullopt;
            }
        }
        file_.Close();
        return FaultOf(EEXIST);
    }

    JournalFault Open(const std::string& path, std::string& bytes) override
    {
        bytes.clear();
        path_ = path;
        struct stat status {};
        JournalFault fault = OpenJournal(path, file_, status);
        if (!fault)
            fault = ReadAll(file_, bytes);
        if (fault) {
            file_.Close();
            bytes.clear();
        }
        return fault;
    }

    Appended Append(std::string_view bytes) override
    {
        ssize_t count = 0;
        do
            count = ::write(file_.Get(), bytes.data(), bytes.size());
        while (count < 0 && errno == EINTR);
        if (count < 0)
            return {0, FaultOf(errno)};
        return {static_cast<std::size_t>(count), std::nullopt};
    }

    JournalFault CutTo(std::uint64_t size) override
    {
        return ::ftruncate(file_.Get(), static_cast<off_t>(size)) == 0 ? JournalFault() : FaultOf(errno);
    }

    bool StillThere() const override { return StandsAt(file_, path_); }

    JournalFault Flush() override
    {
        const int error = quorvane::Flush(file_);
        return error == 0 ? JournalFault() : FaultOf(error);
    }

    JournalFault Retire(const std::string& kept) override
    {
        const int result = kept.empty() ? ::unlink(path_.c_str()) : ::rename(path_.c_str(), kept.c_str());
        if (result != 0)
            return FaultOf(errno);
        file_.Close();
        return std::nullopt;
    }

    void Close() override { file_.Close(); }

private:
    [[nodiscard]] std::string Folder() const
    {
        const std::size_t end = path_.find_last_of('/');
        return end == std::string::npos ? "." : path_.substr(0, end + 1);
    }

    std::string path_;
    FileDescriptor file_;
};

class PosixJournalFiles final : public JournalFiles {
public:
    std::unique_ptr<JournalFile> Make() const override { return std::make_unique<PosixJournalFile>(); }

    std::vector<std::string> LeftOver(const std::string& folder) const override
    {
        std::vector<std::string> paths;
        std::error_code error;
        for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            std::string path = FileInFolder(folder, entry->path().filename().string());
            FileDescriptor file;
            struct stat status {};
            if (path.ends_with(kJournalEnding) && !OpenJournal(path, file, status))
                paths.push_back(std::move(path));
        }
        SortNewestFirst(paths);
        return paths;
    }
};

} // namespace

std::shared_ptr<const JournalFiles> SystemJournalFiles()
{
    return std::make_shared<PosixJournalFiles>();
}

} // namespace quorvane
