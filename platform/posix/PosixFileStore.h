#pragma once

#include "files/FileStore.h"

namespace quorvane {

/// Whole files by the system's own calls. Only regular files are read and written; a symbolic link stays one,
/// and the file that it leads to is meant. A file keeps its mode (and, where the user may give it, its
/// owner) when it is replaced; one that the user may not write is not replaced.
class PosixFileStore final : public FileStore {
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
