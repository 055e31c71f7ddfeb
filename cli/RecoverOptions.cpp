#include "cli/RecoverOptions.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quorvane {
namespace {

constexpr CommandOption kRecoverOptions[] = {
    {"--output", "FILE", "save the readings of an unsaved run to this CSV file; an old one is replaced"},
    {"--journal", "FILE", "the run of this journal (the newest one that is left over)"},
    {"--previous", "", "the newest run that was saved or given up; its journal stays"},
    {"--discard", "", "give the run up"},
    {"--list", "", "show the runs that are left over"},
    {"--help", "", "show this"},
};

constexpr std::array<std::string_view, 3> kActions{"--output", "--discard", "--list"}; // as RecoverAction

} // namespace

std::optional<UsageFault> ReadRecoverOptions(std::span<const std::string> arguments, RecoverOptions& options)
{
    CommandOptions given(kRecoverOptions);
    if (auto fault = given.Read(arguments))
        return fault;
    options.help = given.Has("--help");
    if (options.help)
        return std::nullopt;
    const auto isGiven = [&given](std::string_view name) { return given.Has(name); };
    if (std::ranges::count_if(kActions, isGiven) != 1)
        return UsageFault{"give one of --output, --discard and --list"};
    options.action = static_cast<RecoverAction>(std::ranges::find_if(kActions, isGiven) - kActions.begin());
    options.output = given.Text("--output");
    options.journal = given.Text("--journal");
    options.previous = given.Has("--previous");
    if (options.action == RecoverAction::List && given.Has("--journal"))
        return UsageFault{"--journal does not go with --list"};
    if (options.previous && (options.action != RecoverAction::Save || given.Has("--journal")))
        return UsageFault{"--previous goes with --output alone"};
    return std::nullopt;
}

std::string RecoverUsage()
{
    return CommandOptions(kRecoverOptions).Help();
}

} // namespace quorvane
