#pragma once

#include "app/Prompts.h"
#include "app/Texts.h"

#include <string_view>

namespace quorvane {

/// What typing into the input of one exposure limit does to the limit, mg/m3.
class LimitInput {
public:
    explicit LimitInput(double& limit) : limit_(limit) {}

    /// The operator has changed the text: a number from 0 to the highest limit is stored at once, 0 included,
    /// for it stands on the way to "0.05". An empty text changes nothing; a text that is no number counts
    /// as 0.
    /// @param decimalSign  of the user's system; "." is taken as well
    /// @return false when the number is out of range; the limit is as it was
    [[nodiscard]] bool TextChanged(std::string_view text, std::string_view decimalSign);

    /// The operator is about to leave the box: here the lower bound is the lowest limit, not 0.
    [[nodiscard]] bool IsValid() const;

    [[nodiscard]] double Limit() const { return limit_; }

private:
    double& limit_;
};

/// What the operator is told when a limit is out of its range.
[[nodiscard]] Message LimitRangeMessage(const Texts& texts);

} // namespace quorvane
