#pragma once

#include "app/CommandOptions.h"
#include "instrument/MeasuringProgram.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quorvane {

/// The commands that look at the instrument's settings or change them.
enum class SettingAction { Check, Clock, Program, KFactor };

/// A measuring program as it was given on the command line.
struct GivenProgram {
    LocalMoment start;
    int hours = 0; ///< of one measurement
    int minutes = 0;
    std::int64_t count = 0;
};

/// What one of these commands was asked for.
struct SettingOptions {
    SettingAction action = SettingAction::Check;
    bool help = false;
    std::string port;  ///< "COMn" or a device; empty: the port of the settings
    bool set = false;  ///< clock: sets the instrument's clock before it reads it
    bool send = false; ///< program, k-factor: sends; otherwise only the request is printed
    std::string file;  ///< program: where it is; empty: it is `program`
    GivenProgram program;
    double kFactor = 0; ///< as it was given, in its range or not
};

/// The action of a command's name.
[[nodiscard]] std::optional<SettingAction> SettingActionNamed(std::string_view command);

/// Reads the arguments behind the command's name. @return the first thing that is wrong with them
[[nodiscard]] std::optional<UsageFault>
ReadSettingOptions(SettingAction action, std::span<const std::string> arguments, SettingOptions& options);

/// The options of each command with their help.
[[nodiscard]] std::string SettingUsage();

/// Puts the program into the state, its date as the user's system writes short dates.
/// @return false when a date in that form does not reach the instrument as it was given: one without leading
///         zeros may be too short for it, and two digits do not tell every year
[[nodiscard]] bool StoreProgram(const GivenProgram& given, const ProgramSurroundings& world);

} // namespace quorvane
