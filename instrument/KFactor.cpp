#include "instrument/KFactor.h"

#include "app/RangeMessage.h"
#include "files/NumberText.h"

namespace quorvane {

bool IsValidKFactor(double kFactor)
{
    return kFactor >= kLowestKFactor && kFactor <= kHighestKFactor;
}

KFactorEdit::KFactorEdit(InstrumentProgram& program) : program_(program)
{
    static_cast<void>(IsValid());
}

bool KFactorEdit::TextChanged(std::string_view text, std::string_view decimalSign)
{
    const double value = TypedNumber(text, decimalSign);
    if (!(value >= 0 && value <= kHighestKFactor))
        return false;
    program_.KFactor = value;
    return true;
}

bool KFactorEdit::IsValid()
{
    if (!IsValidKFactor(program_.KFactor))
        return false;
    lastValid_ = program_.KFactor;
    return true;
}

void KFactorEdit::Close()
{
    if (program_.KFactor < kLowestKFactor && lastValid_)
        program_.KFactor = *lastValid_;
}

Message KFactorRangeMessage(const Texts& texts)
{
    return RangeMessage(texts, kLowestKFactor, kHighestKFactor, kInstrumentSettingText);
}

InstrumentCommand KFactorCommand(double kFactor)
{
    return {.letter = 'E', .parameters = PatternText(kFactor * 1000, {1, 1, 1})};
}

} // namespace quorvane
