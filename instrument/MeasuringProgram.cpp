#include "instrument/MeasuringProgram.h"

#include "app/RangeMessage.h"
#include "files/NumberText.h"
#include "instrument/DateTimeText.h"
#include "resources/SystemTexts.h"

#include <algorithm>
#include <cmath>

namespace quorvane {
namespace {

constexpr double kMinutesPerHour = 60;

/// A field that is a number, and its range.
struct NumberRule {
    ProgramField field;
    double InstrumentProgram::*number;
    int lowest;
    int highest;
};

constexpr NumberRule kNumbers[] = {
    {ProgramField::Hours, &InstrumentProgram::ProgramMeasureHours, 0, kMaxProgramHours},
    {ProgramField::Minutes, &InstrumentProgram::ProgramMeasureMinutes, 0, kMaxProgramMinutes},
    {ProgramField::Count, &InstrumentProgram::ProgramMeasureCount, 1, kMaxProgramCount},
};

/// Null for a field that is no number.
const NumberRule* RuleOf(ProgramField field)
{
    const auto* const rule = std::ranges::find(kNumbers, field, &NumberRule::field);
    return rule != std::end(kNumbers) ? rule : nullptr;
}

Message WrongSetup(const Texts& texts, int titleId = kInstrumentSettingText)
{
    return {
        .text = texts[kWrongSetupText], .icon = Icon::Critical, .titleId = titleId, .buttons = Buttons::Ok};
}

std::optional<Message> CheckRange(const NumberRule& rule, double value, const Texts& texts)
{
    if (value >= rule.lowest && value <= rule.highest)
        return std::nullopt;
    return RangeMessage(texts, rule.lowest, rule.highest, kInstrumentSettingText);
}

std::string Digits(double value, int count)
{
    return PatternText(value, {count, 0, 0});
}

std::optional<Message> CheckDate(const ProgramSurroundings& world, std::string_view text)
{
    const std::optional<StartDateFault> fault =
        CheckStartDate(text, world.state, world.locale, world.clock.Now());
    if (!fault)
        return std::nullopt;
    return WrongSetup(world.texts,
                      *fault == StartDateFault::Shape ? kProgramNameText : kInstrumentSettingText);
}

std::optional<Message> CheckField(const ProgramSurroundings& world, ProgramField field)
{
    const ApplicationState& state = world.state;
    if (const NumberRule* const rule = RuleOf(field)) {
        std::optional<Message> refusal = CheckRange(*rule, state.*rule->number, world.texts);
        return refusal || field != ProgramField::Minutes ? refusal : CheckMeasureTime(world);
    }
    if (field == ProgramField::StartDate)
        return CheckDate(world, state.ProgramStartDate);
    if (ReadStartTime(state.ProgramStartTime))
        return std::nullopt;
    return WrongSetup(world.texts);
}

bool IsNoTime(const InstrumentProgram& program)
{
    const std::string zero = Digits(0, 2);
    return Digits(program.ProgramMeasureHours, 2) == zero && Digits(program.ProgramMeasureMinutes, 2) == zero;
}

} // namespace

std::optional<Message> LeaveProgramNumber(const ProgramSurroundings& world, ProgramField field,
                                          std::string_view text, std::string_view decimalSign)
{
    const NumberRule* const rule = RuleOf(field);
    if (rule == nullptr)
        return std::nullopt;
    const double value = TypedNumber(text, decimalSign);
    if (std::optional<Message> refusal = CheckRange(*rule, value, world.texts))
        return refusal;
    double& stored = world.state.*rule->number;
    if (const double whole = std::nearbyint(value); whole != stored) { // the total stays as it was loaded
        stored = whole;
        UpdateProgramTotal(world.state);
    }
    return std::nullopt;
}

double ProgramNumber(const InstrumentProgram& program, ProgramField field)
{
    const NumberRule* const rule = RuleOf(field);
    return rule != nullptr ? program.*rule->number : 0;
}

std::optional<Message> CheckMeasureTime(const ProgramSurroundings& world)
{
    if (!IsNoTime(world.state))
        return std::nullopt;
    return WrongSetup(world.texts);
}

MeasureTimeEdit::MeasureTimeEdit(InstrumentProgram& program)
    : program_(&program), hours_(program.ProgramMeasureHours), minutes_(program.ProgramMeasureMinutes)
{
}

std::optional<Message> MeasureTimeEdit::Leave(const ProgramSurroundings& world, ProgramField field,
                                              std::string_view text, std::string_view decimalSign,
                                              bool forTheOther)
{
    std::optional<Message> refusal = LeaveProgramNumber(world, field, text, decimalSign);
    Keep();
    return refusal || forTheOther ? refusal : CheckMeasureTime(world);
}

void MeasureTimeEdit::Keep()
{
    if (!IsNoTime(*program_))
        *this = MeasureTimeEdit(*program_);
}

void MeasureTimeEdit::Close()
{
    const bool edited =
        program_->ProgramMeasureHours != hours_ || program_->ProgramMeasureMinutes != minutes_;
    if (!IsNoTime(*program_) || !edited)
        return;
    program_->ProgramMeasureHours = hours_;
    program_->ProgramMeasureMinutes = minutes_;
    UpdateProgramTotal(*program_);
}

std::optional<Message> LeaveStartDate(const ProgramSurroundings& world, std::string_view text)
{
    // A blank behind the date would make it too long to be sent.
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    if (std::optional<Message> refusal = CheckDate(world, text))
        return refusal;
    world.state.ProgramStartDate = text;
    return std::nullopt;
}

std::string StartTimeText(int hours, int minutes, int seconds)
{
    return Digits(hours, 2) + ":" + Digits(minutes, 2) + ":" + Digits(seconds, 2);
}

std::optional<StartTime> ReadStartTime(std::string_view text)
{
    const auto number = [text](std::size_t begin) {
        return static_cast<int>(LeadingDecimal(text.substr(std::min(begin, text.size()), 2)));
    };
    const StartTime time = {number(0), number(3), number(6)};
    const bool isTime = time.hours < 24 && time.minutes < 60 && time.seconds < 60 &&
                        text == StartTimeText(time.hours, time.minutes, time.seconds);
    return isTime ? std::optional(time) : std::nullopt;
}

std::optional<ProgramFault> CheckProgram(const ProgramSurroundings& world)
{
    for (const ProgramField field : {ProgramField::StartDate, ProgramField::StartTime, ProgramField::Hours,
                                     ProgramField::Minutes, ProgramField::Count}) {
        if (const std::optional<Message> message = CheckField(world, field))
            return ProgramFault{field, *message};
    }
    return std::nullopt;
}

std::optional<ProgramFault> CheckStartMoment(const ProgramSurroundings& world)
{
    // Not against `NormalisedTime`, in which half past noon is "24:30:00".
    const LocalMoment now = world.clock.Now();
    const std::string today = TextInPattern(now, "yyyy/MM/dd", world.locale);
    const std::string start = RequestDate(world.state.ProgramStartDate, world.state, world.locale, now);
    if (start.empty() || start.starts_with("0000"))
        return std::nullopt;
    if (start < today)
        return ProgramFault{ProgramField::StartDate, {.text = world.texts[kStartDatePastText]}};
    const std::string& time = world.state.ProgramStartTime;
    if (start == today && ReadStartTime(time) && time < InstrumentTimeText(now))
        return ProgramFault{ProgramField::StartTime, {.text = world.texts[kStartTimePastText]}};
    return std::nullopt;
}

void UpdateProgramTotal(InstrumentProgram& program)
{
    const double minutes = (program.ProgramMeasureHours * kMinutesPerHour + program.ProgramMeasureMinutes) *
                           program.ProgramMeasureCount;
    program.ProgramTotalHours = std::floor(minutes / kMinutesPerHour);
    program.ProgramTotalMinutes = std::floor(minutes - program.ProgramTotalHours * kMinutesPerHour);
}

InstrumentCommand ProgramCommand(const ProgramSurroundings& world)
{
    const ApplicationState& state = world.state;
    const std::string_view time = state.ProgramStartTime;
    const auto timePart = [time](std::size_t begin) { return time.substr(std::min(begin, time.size()), 2); };
    std::string parameters =
        RequestDate(state.ProgramStartDate, world.state, world.locale, world.clock.Now());
    parameters.append(";").append(timePart(0));
    parameters.append(":").append(timePart(3));
    parameters.append(":").append(timePart(6));
    parameters.append(";").append(Digits(state.ProgramMeasureHours, 2));
    parameters.append(":").append(Digits(state.ProgramMeasureMinutes, 2));
    parameters.append(";").append(Digits(state.ProgramMeasureCount, 5));
    return {.letter = 'P',
            .parameters = parameters,
            .waiting = InstrumentCommand::Waiting::BeforeFirstRead,
            .clearInputFirst = false};
}

} // namespace quorvane
