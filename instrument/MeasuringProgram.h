#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "instrument/CommandExchange.h"
#include "instrument/StartDate.h"

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// What the rules of the measuring program need of the world.
struct ProgramSurroundings {
    ApplicationState& state;
    const LocaleItems& locale;
    const LocalClock& clock;
    const Texts& texts;
};

/// The fields of the measuring program, in the order in which they are checked before it is sent.
enum class ProgramField { StartDate, StartTime, Hours, Minutes, Count };

/// Why a field is refused. Without a message the operator is told nothing.
struct ProgramFault {
    ProgramField field = ProgramField::Count;
    Message message;
};

/// A number typed into `Count` (1 to 30000), `Hours` (0 to 99) or `Minutes` (0 to 59) is about to be left: it
/// is stored, rounded to a whole one, and the total measure time with it when it is another than before. An
/// empty text and one that is no number count as 0.
/// @return what the operator is told, or nothing when it is stored
[[nodiscard]] std::optional<Message> LeaveProgramNumber(const ProgramSurroundings& world, ProgramField field,
                                                        std::string_view text, std::string_view decimalSign);

/// Hours and minutes are both 0, which is no time to measure.
/// @return what the operator is told, or nothing
[[nodiscard]] std::optional<Message> CheckMeasureTime(const ProgramSurroundings& world);

/// The start date is about to be left: it is stored when it has the shape of the user's short dates and its
/// month and day pass. A year of only zeros leaves the date open; the rest is not looked at then.
/// @return what the operator is told, or nothing when it is stored
[[nodiscard]] std::optional<Message> LeaveStartDate(const ProgramSurroundings& world, std::string_view text);

/// Three list entries were chosen. @return "hh:mm:ss"
[[nodiscard]] std::string StartTimeText(int hours, int minutes, int seconds);

/// The hour, minute and second of `ProgramStartTime`; nothing when it is no "hh:mm:ss" of a day.
struct StartTime {
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
};
[[nodiscard]] std::optional<StartTime> ReadStartTime(std::string_view text);

/// Everything that is checked of the stored program before it is sent, for it may come from a file.
/// @return the first field that is refused, or nothing
[[nodiscard]] std::optional<ProgramFault> CheckProgram(const ProgramSurroundings& world);

/// Whether the start lies in the past, by the computer's clock. A date whose year is left open and one that
/// will not be sent are passed over.
/// @return what the operator is told, or nothing
[[nodiscard]] std::optional<ProgramFault> CheckStartMoment(const ProgramSurroundings& world);

/// `ProgramTotalHours` and `ProgramTotalMinutes` of measure time and count.
void UpdateProgramTotal(InstrumentProgram& program);

/// The command that sends the stored program: "P2024/05/01;09:30:00;01:30;00120". A date that is not 8, 9 or
/// 10 characters long is sent as an empty field.
[[nodiscard]] InstrumentCommand ProgramCommand(const ProgramSurroundings& world);

} // namespace quorvane
