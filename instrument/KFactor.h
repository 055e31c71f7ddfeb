#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "instrument/CommandExchange.h"

#include <optional>
#include <string_view>

namespace quorvane {

/// Range of the instrument's conversion coefficient, mg/m3 per count per minute.
inline constexpr double kLowestKFactor = 0.0001;
inline constexpr double kHighestKFactor = 0.0099;

/// Whether an instrument takes it.
[[nodiscard]] bool IsValidKFactor(double kFactor);

/// The K-factor being edited. It changes while the operator types; the upper limit holds then already, the
/// lower one only when the box is left, because 0 stands on the way to 0.0012.
class KFactorEdit {
public:
    explicit KFactorEdit(InstrumentProgram& program);

    /// A number from 0 to the highest is stored at once; an empty text and one that is no number count as 0.
    /// @param decimalSign  of the user's system; "." is taken as well
    /// @return false when the number is out of range; the K-factor is as it was
    [[nodiscard]] bool TextChanged(std::string_view text, std::string_view decimalSign);

    /// The box is left, or the K-factor is to be sent: whether the stored one is in its range. If so, it is
    /// what `Close` goes back to.
    [[nodiscard]] bool IsValid();

    /// The dialog closes without another look: one below its range becomes again the last one that was found
    /// valid, here or when the dialog opened. Without such a one it stays.
    void Close();

private:
    InstrumentProgram& program_;
    std::optional<double> lastValid_;
};

/// What the operator is told when the K-factor is out of its range.
[[nodiscard]] Message KFactorRangeMessage(const Texts& texts);

/// The command that sets the instrument's K-factor: thousandths with one decimal, "E1.2" for 0.0012.
[[nodiscard]] InstrumentCommand KFactorCommand(double kFactor);

} // namespace quorvane
