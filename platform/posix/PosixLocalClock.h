#pragma once

#include "app/LocalClock.h"

namespace quorvane {

class PosixLocalClock final : public LocalClock {
public:
    [[nodiscard]] LocalMoment Now() const override;
    [[nodiscard]] std::chrono::steady_clock::time_point SteadyNow() const override
    {
        return std::chrono::steady_clock::now();
    }
    [[nodiscard]] std::chrono::system_clock::time_point SystemNow() const override
    {
        return std::chrono::system_clock::now();
    }
    [[nodiscard]] std::chrono::milliseconds SinceBoot() const override;
};

} // namespace quorvane
