#pragma once

#include "app/KeepAwake.h"

namespace quorvane {

/// By the execution state of the thread that calls; the screen may go dark.
class WindowsKeepAwake final : public KeepAwake {
public:
    void Hold() override;
    void Release() override;
};

} // namespace quorvane
