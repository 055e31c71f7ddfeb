#pragma once

#include "files/FileStore.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// The file of one journal, by the system's own calls. While it is open it is locked against other programs
/// and against other objects of this class. Used by one thread at a time; any call may wait for the disk.
class JournalFile {
public:
    virtual ~JournalFile() = default;

    /// Makes a new file and opens it. Where there is one of that name, or another program has just made it,
    /// a number is put behind the name: "Run 2.journal".
    [[nodiscard]] virtual std::optional<FileFault> Create(const std::string& path) = 0;
    /// Opens a file that is there, and reads it. It is not written to.
    [[nodiscard]] virtual std::optional<FileFault> Open(const std::string& path, std::string& bytes) = 0;

    struct Appended {
        std::size_t bytes = 0; ///< that stand in the file now; maybe fewer than were given
        std::optional<FileFault> fault;
    };
    /// One write behind what stands in the file.
    [[nodiscard]] virtual Appended Append(std::string_view bytes) = 0;
    /// Takes away what stands behind the first `size` bytes.
    [[nodiscard]] virtual std::optional<FileFault> CutTo(std::uint64_t size) = 0;
    /// Whether its path still leads to it. False when somebody has removed or renamed it, or its disk has
    /// gone.
    [[nodiscard]] virtual bool StillThere() const = 0;
    /// To the disk itself.
    [[nodiscard]] virtual std::optional<FileFault> Flush() = 0;
    /// Renames it, replacing what has that name, or removes it when `kept` is empty, and closes it. When this
    /// fails it may be closed or open; it can be asked for again.
    [[nodiscard]] virtual std::optional<FileFault> Retire(const std::string& kept) = 0;
    virtual void Close() = 0;
};

/// The system's files of journals.
class JournalFiles {
public:
    virtual ~JournalFiles() = default;
    [[nodiscard]] virtual std::unique_ptr<JournalFile> Make() const = 0;
    /// The files in `folder` whose names end in `kJournalEnding` and that nobody has open, newest name first.
    [[nodiscard]] virtual std::vector<std::string> LeftOver(const std::string& folder) const = 0;
};

/// Of this system. On POSIX they are locked by flock, and written without where a file system has no locks;
/// on Windows others may read one that is open, and nothing else.
[[nodiscard]] std::shared_ptr<const JournalFiles> SystemJournalFiles();

/// "Run.journal" is "Run 2.journal" when it is the second of that name; the first keeps it.
[[nodiscard]] std::string NumberedJournal(const std::string& path, int number);

/// Sorts the paths of journals in one folder so that the newest name is first, a numbered one before the one
/// without.
void SortNewestFirst(std::vector<std::string>& paths);

} // namespace quorvane
