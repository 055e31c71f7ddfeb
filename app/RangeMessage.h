#pragma once

#include "app/Prompts.h"
#include "app/Texts.h"

namespace quorvane {

/// What the operator is told when a number that was typed or loaded is out of its range: "(1-30000)" behind
/// the words.
[[nodiscard]] Message RangeMessage(const Texts& texts, double lowest, double highest,
                                   int titleId = kProgramNameText);

} // namespace quorvane
