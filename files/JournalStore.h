#pragma once

#include "files/FileStore.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// How the writing of a journal is getting on.
struct JournalHealth {
    bool behind = false; ///< records wait longer than they should: a slow disk
    std::optional<FileFault>
        fault; ///< the newest attempt to write failed; it is tried again until it succeeds
    [[nodiscard]] bool Good() const { return !behind && !fault; }
};

/// The journals of runs, one file each, and at most one of them at hand: being written, or claimed. What is
/// at hand is locked against other programs. Paths are UTF-8.
///
/// A thread of its own writes. `Begin`, `Put`, `Retire`, `Release` and `Health` never wait for a disk; what
/// they ask for is done in their order. Called on one thread.
class JournalStore {
public:
    virtual ~JournalStore() = default;

    /// Begins a new journal at `path`; one that is at hand is released before. A file that has this name
    /// stays as it is: the new one gets a number behind its name.
    virtual void Begin(const std::string& path) = 0;
    /// Takes a record to append. Each goes to the operating system as soon as it can, to the disk at least
    /// every 5 s, and stands in the file whole or not at all unless the program or the system ends in
    /// between.
    /// @return false when it was not taken, because too much waits already: offer it again
    [[nodiscard]] virtual bool Put(std::string_view record) = 0;
    [[nodiscard]] virtual JournalHealth Health() const = 0;
    /// Whether the journal that is being written has gone: somebody has removed or renamed it, or its disk is
    /// not there any more. What was put is lost to it, and `Begin` has to make another one.
    [[nodiscard]] virtual bool Vanished() const = 0;
    /// Closes the journal at hand and renames it to `kept`, replacing what has that name; an empty `kept`
    /// removes it. Without one it does nothing.
    virtual void Retire(const std::string& kept) = 0;
    /// Closes the journal at hand and leaves it where it is.
    virtual void Release() = 0;

    /// Journals in `folder` (names ending in `kJournalEnding`) that no program has at hand, newest name
    /// first.
    [[nodiscard]] virtual std::vector<std::string> LeftOver(const std::string& folder) const = 0;
    /// Reads a left-over journal and has it at hand. @return why not: `InUse` when another program has it
    [[nodiscard]] virtual std::optional<FileFault> Claim(const std::string& path, std::string& bytes) = 0;
};

inline constexpr std::string_view kJournalEnding = ".journal";

} // namespace quorvane
