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

/// Measurements of a program, at least 1 of them; hours and minutes of one measurement, from 0.
inline constexpr int kMaxProgramCount = 30000;
inline constexpr int kMaxProgramHours = 99;
inline constexpr int kMaxProgramMinutes = 59;

/// What the rules of the measuring program need of the world.
struct ProgramSurroundings {
    ApplicationState& state;
    const LocaleItems& locale;
    const LocalClock& clock;
    const Texts& texts;
};

/// The fields of the measuring program, in the order in which they are checked before it is sent.
enum class ProgramField { StartDate, StartTime, Hours, Minutes, Count };

/// Why a field is refused, and what the operator is told.
struct ProgramFault {
    ProgramField field = ProgramField::Count;
    Message message;
};

/// A number typed into `Count` (1 to 30000), `Hours` (0 to 99) or `Minutes` (0 to 59) is about to be left: it
/// is stored, rounded to a whole one, a half to the even neighbour, and the total measure time with it when
/// it is another than before. An empty text and one that is no number count as 0.
/// @param field        another one has no number, and nothing happens
/// @param decimalSign  of the user's system; "." is taken as well
/// @return what the operator is told, or nothing when it is stored
[[nodiscard]] std::optional<Message> LeaveProgramNumber(const ProgramSurroundings& world, ProgramField field,
                                                        std::string_view text, std::string_view decimalSign);

/// The number of `Count`, `Hours` or `Minutes`; 0 for a field that is none.
[[nodiscard]] double ProgramNumber(const InstrumentProgram& program, ProgramField field);

/// Hours and minutes are both 0 as they are sent, which is no time to measure.
/// @return what the operator is told, or nothing
[[nodiscard]] std::optional<Message> CheckMeasureTime(const ProgramSurroundings& world);

/// The measure time being edited. It is stored while the operator goes from its hours to its minutes, and may
/// be 0:00 on the way.
class MeasureTimeEdit {
public:
    explicit MeasureTimeEdit(InstrumentProgram& program);

    /// Hours or minutes are about to be left, see `LeaveProgramNumber`. Unless the other of the two is what
    /// the operator goes to, they must not both be 0.
    /// @return what the operator is told, or nothing
    [[nodiscard]] std::optional<Message> Leave(const ProgramSurroundings& world, ProgramField field,
                                               std::string_view text, std::string_view decimalSign,
                                               bool forTheOther);
    /// The dialog closes without another look: 0:00 becomes again what it last was, and the total with it.
    void Close();

private:
    void Keep();

    InstrumentProgram* program_;
    double hours_;
    double minutes_;
};

/// The start date is about to be left: it is stored, without blanks around it, when it passes
/// `CheckStartDate`.
/// @return what the operator is told, or nothing when it is stored
[[nodiscard]] std::optional<Message> LeaveStartDate(const ProgramSurroundings& world, std::string_view text);

/// Three list entries were chosen. @return "hh:mm:ss"
[[nodiscard]] std::string StartTimeText(int hours, int minutes, int seconds);

/// A time of day.
struct StartTime {
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
};
/// The hour, minute and second of a `ProgramStartTime`; nothing when it is no "hh:mm:ss" of a day.
[[nodiscard]] std::optional<StartTime> ReadStartTime(std::string_view text);

/// Everything that is checked of the stored program before it is sent, for it may come from a file: the
/// fields in their order, and the measure time as a fault of `Minutes`. Numbers that are not whole pass; they
/// are rounded as they are sent.
/// @return the first field that is refused, or nothing
[[nodiscard]] std::optional<ProgramFault> CheckProgram(const ProgramSurroundings& world);

/// Whether the start lies in the past, by the computer's clock; a start in this very second does not. Passed
/// over are a date whose year is left open or not usable and one that is sent as an empty field, and, on the
/// day itself, a start time that is none.
/// @return the field and what the operator is told, or nothing
[[nodiscard]] std::optional<ProgramFault> CheckStartMoment(const ProgramSurroundings& world);

/// Makes `ProgramTotalHours` and `ProgramTotalMinutes` of measure time and count.
void UpdateProgramTotal(InstrumentProgram& program);

/// The command that sends the stored program: "P2024/05/01;09:30:00;01:30;00120", with the date as
/// `RequestDate` gives it. Nothing is checked.
[[nodiscard]] InstrumentCommand ProgramCommand(const ProgramSurroundings& world);

} // namespace quorvane
