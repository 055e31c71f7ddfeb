#include "cli/SettingOptions.h"

#include "instrument/DateTimeText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace quorvane {
namespace {

constexpr CommandOption kPort{"--port", "DEVICE|COMn", "the instrument's line (the port of the settings)"};
constexpr CommandOption kHelp{"--help", "", "show this"};

constexpr CommandOption kCheckOptions[] = {kPort, kHelp};
constexpr CommandOption kClockOptions[] = {
    kPort, {"--set", "", "set the instrument's clock by the computer's first"}, kHelp};
constexpr CommandOption kProgramOptions[] = {
    kPort,
    {"--file", "FILE.ini", "the program that the desktop program saved there"},
    {"--start", "TIME", "when it starts, \"YYYY-MM-DD hh:mm:ss\""},
    {"--measure-time", "HH:MM", "how long one measurement takes, 00:01 to 99:59"},
    {"--count", "N", "number of measurements, 1 to 30000"},
    {"--send", "", "send it; otherwise the request is only printed"},
    kHelp};
constexpr CommandOption kKFactorOptions[] = {{"VALUE", "", "mg/m3 per count per minute, 0.0001 to 0.0099"},
                                             kPort,
                                             {"--send", "", "send it; otherwise the request is only printed"},
                                             kHelp};

struct Command {
    std::string_view name;
    std::span<const CommandOption> options;
};

constexpr std::array<Command, 4> kCommands{{{"check", kCheckOptions},
                                            {"clock", kClockOptions},
                                            {"program", kProgramOptions},
                                            {"k-factor", kKFactorOptions}}}; // in the order of SettingAction

constexpr std::string_view kTypedProgram[] = {"--start", "--measure-time", "--count"};

/// "H:MM" or "HH:MM"
bool ParseMeasureTime(std::string_view text, GivenProgram& program)
{
    const char* const end = text.data() + text.size();
    const auto hours = std::from_chars(text.data(), end, program.hours);
    const std::size_t colon = text.find(':');
    if (hours.ec != std::errc{} || hours.ptr != text.data() + colon || text.size() - colon != 3)
        return false;
    const auto minutes = std::from_chars(hours.ptr + 1, end, program.minutes);
    return minutes.ec == std::errc{} && minutes.ptr == end && program.hours >= 0 &&
           program.hours <= kMaxProgramHours && program.minutes >= 0 && program.minutes <= kMaxProgramMinutes;
}

std::optional<UsageFault> ReadTypedProgram(const CommandOptions& given, GivenProgram& program)
{
    for (const std::string_view needed : kTypedProgram) {
        if (!given.Has(needed))
            return UsageFault{std::string(needed) + " is missing"};
    }
    std::optional<LocalMoment> start;
    if (auto fault = given.ReadMoment("--start", start))
        return fault;
    program.start = start.value_or(program.start);
    if (!ParseMeasureTime(given.Text("--measure-time"), program))
        return UsageFault{"--measure-time takes hours and minutes from \"00:01\" to \"99:59\", not " +
                          Quoted(given.Text("--measure-time"))};
    return given.ReadWhole("--count", 1, kMaxProgramCount, program.count);
}

std::optional<UsageFault> ReadProgram(const CommandOptions& given, SettingOptions& options)
{
    options.file = given.Text("--file");
    const bool typed = std::ranges::any_of(kTypedProgram, [&](auto name) { return given.Has(name); });
    if (typed != options.file.empty())
        return UsageFault{"give either --file, or --start, --measure-time and --count"};
    return typed ? ReadTypedProgram(given, options.program) : std::nullopt;
}

std::optional<UsageFault> ReadKFactor(const CommandOptions& given, double& kFactor)
{
    constexpr double kAny = std::numeric_limits<double>::max(); // the range is the instrument's, not ours
    if (!given.Has("VALUE"))
        return UsageFault{"VALUE is missing"};
    if (given.ReadDecimal("VALUE", -kAny, kAny, kFactor))
        return UsageFault{"VALUE takes a number as 0.0012, not " + Quoted(given.Text("VALUE"))};
    return std::nullopt;
}

} // namespace

std::optional<SettingAction> SettingActionNamed(std::string_view command)
{
    const auto* const found = std::ranges::find(kCommands, command, &Command::name);
    if (found == kCommands.end())
        return std::nullopt;
    return static_cast<SettingAction>(found - kCommands.begin());
}

std::optional<UsageFault> ReadSettingOptions(SettingAction action, std::span<const std::string> arguments,
                                             SettingOptions& options)
{
    CommandOptions given(kCommands.at(static_cast<std::size_t>(action)).options);
    if (auto fault = given.Read(arguments))
        return fault;
    options.action = action;
    options.help = given.Has("--help");
    if (options.help)
        return std::nullopt;
    options.port = given.Text("--port");
    options.set = given.Has("--set");
    options.send = given.Has("--send");
    if (action == SettingAction::Program)
        return ReadProgram(given, options);
    if (action == SettingAction::KFactor)
        return ReadKFactor(given, options.kFactor);
    return std::nullopt;
}

std::string SettingUsage()
{
    std::string usage;
    for (const Command& command : kCommands) {
        usage.append(usage.empty() ? "" : "\n").append("Options of ").append(command.name).append(":\n");
        usage += CommandOptions(command.options).Help();
    }
    return usage;
}

bool StoreProgram(const GivenProgram& given, const ProgramSurroundings& world)
{
    ApplicationState& state = world.state;
    state.ProgramStartDate = SystemDateText(given.start, world.locale);
    state.ProgramStartTime = InstrumentTimeText(given.start);
    state.ProgramMeasureHours = given.hours;
    state.ProgramMeasureMinutes = given.minutes;
    state.ProgramMeasureCount = static_cast<double>(given.count);
    const std::string date = TextInPattern(given.start, "yyyy/MM/dd", world.locale);
    return ProgramCommand(world).parameters.starts_with(date + ";");
}

} // namespace quorvane
