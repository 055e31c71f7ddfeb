#pragma once

#include "app/ApplicationState.h"
#include "app/CheckedInputs.h"
#include "app/LocaleItems.h"
#include "app/Prompts.h"
#include "app/Texts.h"

#include <array>
#include <functional>

namespace quorvane {

class CheckedBox;

/// The three limit inputs of the main window: `Text1` TWA, `Text2` STEL, `Text3` ceiling. They behave alike.
class LimitInputs final {
public:
    /// @param tell  shows a message and returns when the operator has read it
    LimitInputs(AlarmLimits& limits, const std::array<CheckedBox*, 3>& boxes, const LocaleItems& locale,
                const Texts& texts, std::function<void(const Message&)> tell);

    /// Shows the limits as they are stored. That is no change by the operator.
    void Fill() { inputs_.Fill(); }
    /// Checks all three. The first that is out of its range is told, and gets the focus.
    /// @return whether all are in range
    [[nodiscard]] bool Validate() { return inputs_.Validate(); }
    void SetEnabled(bool enabled);

private:
    std::array<CheckedBox*, 3> boxes_;
    CheckedInputs inputs_;
};

} // namespace quorvane
