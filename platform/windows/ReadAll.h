#pragma once

#include "files/FileStore.h"
#include "platform/windows/Handle.h"

#include <optional>
#include <string>

namespace quorvane {

/// The bytes from the file's position to its end; none when it fails, or when it has more than
/// `kLargestFile`.
[[nodiscard]] std::optional<FileFault> ReadAll(const Handle& file, std::string& bytes);

} // namespace quorvane
