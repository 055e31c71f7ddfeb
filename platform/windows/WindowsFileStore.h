#pragma once

#include "files/FileStore.h"

namespace quorvane {

/// Whole files by the system's own calls. Only files on a disk are read and written; a symbolic link stays
/// one, and the file that it leads to is meant. A read-only file is not replaced.
class WindowsFileStore final : public FileStore {
public:
    [[nodiscard]] bool Exists(const std::string& path) const override;
    [[nodiscard]] std::optional<std::uintmax_t> Size(const std::string& path) const override;
    [[nodiscard]] std::optional<FileFault> ReadWhole(const std::string& path,
                                                     std::string& bytes) const override;
    [[nodiscard]] std::optional<FileFault> Append(const std::string& path, std::string_view bytes) override;
    [[nodiscard]] std::optional<FileFault> CheckReplace(const std::string& path) const override;
    [[nodiscard]] std::optional<FileFault> Replace(const std::string& path, std::string_view bytes) override;
};

} // namespace quorvane
