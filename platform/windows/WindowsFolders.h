#pragma once

#include "files/Folders.h"

namespace quorvane {

/// Folders by the system's own calls.
class WindowsFolders final : public Folders {
public:
    [[nodiscard]] bool CanWrite(const std::string& folder) const override;
    [[nodiscard]] std::optional<std::uintmax_t> FreeSpace(const std::string& folder) const override;
    [[nodiscard]] bool Make(const std::string& folder) override;
};

} // namespace quorvane
