#pragma once

#include "tests/support/ScratchFolder.h"

namespace quorvane {

/// The bytes of a file that was made by hand.
inline std::string GoldenBytes(const std::string& name)
{
    return FileBytes(QUORVANE_GOLDEN_FOLDER "/" + name);
}

} // namespace quorvane
