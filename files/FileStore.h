#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

enum class FileFaultKind { NotFound, NoPermission, NoSpace, InUse, NotAFile, Other };

/// Why a file could not be read or written.
struct FileFault {
    FileFaultKind kind = FileFaultKind::Other;
    std::string systemReason; ///< in the system's words, UTF-8
};

/// More than any file of this program; a larger one is not read, for it would not fit into memory.
inline constexpr std::size_t kLargestFile = std::size_t{256} << 20U;

/// Whole files. Paths are UTF-8; contents are bytes. Each operation returns why it failed, or nothing.
class FileStore {
public:
    virtual ~FileStore() = default;
    [[nodiscard]] virtual bool Exists(const std::string& path) const = 0;
    /// Bytes of a file, so that a large one need not be read to be refused; nothing when that is not known.
    [[nodiscard]] virtual std::optional<std::uintmax_t> Size(const std::string& path) const = 0;
    [[nodiscard]] virtual std::optional<FileFault> ReadWhole(const std::string& path,
                                                             std::string& bytes) const = 0;
    /// Appends to a file and makes it when there is none.
    [[nodiscard]] virtual std::optional<FileFault> Append(const std::string& path,
                                                          std::string_view bytes) = 0;
    /// @return why `Replace` would be refused as things are: no folder, no permission, not a file. It may
    /// still
    ///         fail later, for instance on a full disk.
    [[nodiscard]] virtual std::optional<FileFault> CheckReplace(const std::string& path) const = 0;
    /// Writes `bytes` beside `path`, flushes them to the disk and renames them over it. Whenever this fails
    /// an old file of that name is whole and nothing is left over.
    [[nodiscard]] virtual std::optional<FileFault> Replace(const std::string& path,
                                                           std::string_view bytes) = 0;
};

} // namespace quorvane
