#pragma once

#include "platform/JournalFile.h"

namespace quorvane {

/// Journals on this system. Others may read one that is open, and nothing else.
class WindowsJournalFiles final : public JournalFiles {
public:
    [[nodiscard]] std::unique_ptr<JournalFile> Make() const override;
    [[nodiscard]] std::vector<std::string> LeftOver(const std::string& folder) const override;
};

} // namespace quorvane
