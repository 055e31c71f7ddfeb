#pragma once

#include "app/ApplicationState.h"
#include "app/LocaleItems.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "measure/LimitInput.h"

#include <QObject>
#include <array>
#include <functional>

namespace quorvane {

class LimitBox;

/// The three limit inputs of the main window: `Text1` TWA, `Text2` STEL, `Text3` ceiling. They behave alike.
class LimitInputs final : public QObject {
public:
    /// @param tell  shows a message and returns when the operator has read it
    LimitInputs(AlarmLimits& limits, const std::array<LimitBox*, 3>& boxes, const LocaleItems& locale,
                const Texts& texts, std::function<void(const Message&)> tell);

    /// Shows the limits as they are stored. That is no change by the operator.
    void Fill();
    /// Checks all three. The first that is out of its range is told, and gets the focus.
    /// @return whether all are in range
    [[nodiscard]] bool Validate();
    void SetEnabled(bool enabled);

private:
    struct Row {
        LimitBox* box;
        LimitInput input;
    };
    void TextEdited(Row& row);
    void Leave(Row& row);
    bool ValidateRow(Row& row);
    void Refuse(Row& row);
    void ShowLimit(const Row& row);

    std::array<Row, 3> rows_;
    const LocaleItems& locale_;
    const Texts& texts_;
    std::function<void(const Message&)> tell_;
    bool telling_ = false;
};

} // namespace quorvane
