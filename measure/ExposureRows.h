#pragma once

#include "app/Texts.h"
#include "measure/RunObserver.h"

#include <array>

class QLabel;

namespace quorvane {

class CheckedBox;
class LampView;

/// The controls that belong to one exposure limit.
struct ExposureRow {
    LampView* lamp;
    QLabel* name;  ///< what is limited, and below it what the value is
    QLabel* value; ///< large; filled by the `ReadingPanel`
    QLabel* limitLabel;
    CheckedBox* limit;
};

/// The captions and lamps of the three exposure rows of the main window: TWA, STEL, ceiling.
class ExposureRows final {
public:
    explicit ExposureRows(const std::array<ExposureRow, 3>& rows);

    void SetCaptions(const Texts& texts);
    void SetLit(Lamp lamp, bool lit);

private:
    std::array<ExposureRow, 3> rows_;
};

} // namespace quorvane
