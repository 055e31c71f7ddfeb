#pragma once

#include <QIcon>

namespace quorvane {

/// The program's icon in all its sizes.
[[nodiscard]] QIcon ProgramIcon();

} // namespace quorvane
