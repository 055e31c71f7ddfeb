#pragma once

#include "platform/JournalFile.h"

namespace quorvane {

/// Journals on this system, locked by flock; where a file system has no locks they are written without.
class PosixJournalFiles final : public JournalFiles {
public:
    [[nodiscard]] std::unique_ptr<JournalFile> Make() const override;
    [[nodiscard]] std::vector<std::string> LeftOver(const std::string& folder) const override;
};

} // namespace quorvane
