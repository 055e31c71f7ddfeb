#pragma once

#include "measure/Exposure.h"
#include "measure/RunObserver.h"

namespace quorvane {

/// The three alarm lamps. A lit lamp stays lit until all are cleared; each change is told once.
class AlarmLamps {
public:
    explicit AlarmLamps(RunObserver& observer) : observer_(observer) {}
    void Light(const LampsLit& lit);
    void Clear();
    [[nodiscard]] const LampsLit& Lit() const { return lit_; }

private:
    void Set(Lamp lamp, bool& current, bool lit);

    RunObserver& observer_;
    LampsLit lit_;
};

} // namespace quorvane
