#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/Texts.h"

#include <string_view>

namespace quorvane {

/// What the operator can edit of the measure settings, in the order of its boxes `Text1` to `Text3`.
enum class MeasureField {
    MeasureNumber,   ///< readings of a run, `TotalSamples`
    MeasureSetting2, ///< second count, not part of the total measure time
    SamplingSeconds,
};

/// The measure settings being edited: they change at once and go back to what they were unless accepted.
/// All are whole numbers, what is typed with decimals is rounded, a half to the even neighbour: a run takes
/// no part of a reading.
class MeasureSettingEdit {
public:
    explicit MeasureSettingEdit(MeasureSettings& settings) : settings_(settings), before_(settings) {}

    /// The operator has changed the text: a number from 0 to the highest is stored at once, with the total
    /// measure time, 0 included, for it may stand on the way to another. An empty text and one that is no
    /// number count as 0. `MeasureSetting2` is taken when its box is left, and not before.
    /// @param decimalSign  of the user's system; "." is taken as well
    /// @return false when the number is out of range; the stored one is as it was
    [[nodiscard]] bool TextChanged(MeasureField field, std::string_view text, std::string_view decimalSign);

    /// The operator is about to leave the box: stores a number from 1 to the highest.
    /// @return false when the number is out of range; the stored one is as it was
    [[nodiscard]] bool TextLeft(MeasureField field, std::string_view text, std::string_view decimalSign);

    [[nodiscard]] double Stored(MeasureField field) const;

    /// The dialog closes: unless it was accepted, all six values are again what they were.
    void Close();

    bool Accepted = false;

private:
    void Store(MeasureField field, double value);

    MeasureSettings& settings_;
    const MeasureSettings before_;
};

/// What the operator is told when a number is out of its range.
[[nodiscard]] Message MeasureRangeMessage(MeasureField field, const Texts& texts);

} // namespace quorvane
