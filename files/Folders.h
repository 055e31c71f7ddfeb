#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorvane {

/// Folders of the system. Paths are UTF-8.
class Folders {
public:
    virtual ~Folders() = default;
    /// Whether files can be made in `folder`, found out by making one and taking it away again.
    [[nodiscard]] virtual bool CanWrite(const std::string& folder) const = 0;
    /// Bytes that this user can still write in `folder`; nothing when that is not known.
    [[nodiscard]] virtual std::optional<std::uintmax_t> FreeSpace(const std::string& folder) const = 0;
    /// Makes `folder` and what is missing above it, for the user alone; one that is there stays as it is.
    /// @return whether it is there now
    [[nodiscard]] virtual bool Make(const std::string& folder) = 0;
};

} // namespace quorvane
