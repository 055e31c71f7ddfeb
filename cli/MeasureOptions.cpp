#include "cli/MeasureOptions.h"

#include "cli/ChosenPort.h"

#include <limits>

namespace quorvane {
namespace {

constexpr CommandOption kOptions[] = {
    {"--port", "DEVICE|COMn", "measure from the instrument on this line; see quorvane-cli ports"},
    {"--simulate", "", "make readings up instead"},
    {"--random-seed", "N", "the same made-up readings each time"},
    {"--samples", "N", "how many readings, 1 to 65500"},
    {"--interval", "S", "seconds from one reading to the next, 1 to 900"},
    {"--output", "FILE", "the CSV file to write; an old one is replaced when the run has ended"},
    {"--twa", "X", "limit of the time-weighted average, 0.001 to 10 mg/m3"},
    {"--stel", "X", "limit of the short-term average, 0.001 to 10 mg/m3"},
    {"--ceiling", "X", "ceiling, 0.001 to 10 mg/m3"},
    {"--speed", "F",
     "pace the readings F times faster, to rehearse with a simulated "
     "instrument"},
    {"--give-up", "SECONDS", "stop when the instrument has been silent for so long, from 0.1"},
    {"--quiet", "", "do not print the readings"},
    {"--help", "", "show this"},
};

std::optional<UsageFault> ReadLimit(const CommandOptions& given, std::string_view name,
                                    std::optional<double>& limit)
{
    double value = 0;
    auto fault = given.ReadDecimal(name, kLowestAlarmLimit, kHighestAlarmLimit, value);
    if (!fault && given.Has(name))
        limit = value;
    return fault;
}

/// What belongs together, and what has to be there.
std::optional<UsageFault> CheckCombination(const CommandOptions& given)
{
    if (given.Has("--port") == given.Has("--simulate"))
        return UsageFault{"give either --port or --simulate"};
    if (given.Has("--random-seed") && !given.Has("--simulate"))
        return UsageFault{"--random-seed goes with --simulate"};
    for (const std::string_view needed : {"--samples", "--interval", "--output"}) {
        if (!given.Has(needed))
            return UsageFault{std::string(needed) + " is missing"};
    }
    return std::nullopt;
}

std::optional<UsageFault> ReadNumbers(const CommandOptions& given, MeasureOptions& options)
{
    if (auto fault = given.ReadWhole("--samples", 1, kMaxSamples, options.samples))
        return fault;
    if (auto fault = given.ReadWhole("--interval", 1, kMaxSamplingSeconds, options.intervalSeconds))
        return fault;
    if (auto fault = ReadLimit(given, "--twa", options.twa))
        return fault;
    if (auto fault = ReadLimit(given, "--stel", options.stel))
        return fault;
    if (auto fault = ReadLimit(given, "--ceiling", options.ceiling))
        return fault;
    if (auto fault = given.ReadDecimal("--speed", 0.001, 100000, options.speed))
        return fault;

    double giveUpSeconds = 0;
    if (auto fault = given.ReadDecimal("--give-up", 0.1, 1e6, giveUpSeconds))
        return fault;
    if (given.Has("--give-up"))
        options.giveUp = std::chrono::milliseconds(static_cast<std::int64_t>(giveUpSeconds * 1000));

    std::int64_t seed = 0;
    if (auto fault = given.ReadWhole("--random-seed", 0, std::numeric_limits<std::int64_t>::max(), seed))
        return fault;
    if (given.Has("--random-seed"))
        options.randomSeed = static_cast<std::uint64_t>(seed);
    return std::nullopt;
}

} // namespace

std::optional<UsageFault> ReadMeasureOptions(std::span<const std::string> arguments, MeasureOptions& options)
{
    CommandOptions given(kOptions);
    if (auto fault = given.Read(arguments))
        return fault;
    options.help = given.Has("--help");
    if (options.help)
        return std::nullopt;
    if (auto fault = CheckCombination(given))
        return fault;
    options.port = given.Text("--port");
    options.output = given.Text("--output");
    options.quiet = given.Has("--quiet");
    return ReadNumbers(given, options);
}

std::string MeasureUsage()
{
    return CommandOptions(kOptions).Help();
}

void ApplyOptions(const MeasureOptions& options, ApplicationState& state)
{
    state.RunMode = !options.port.empty();
    ApplyPort(options.port, state);
    state.TotalSamples = static_cast<double>(options.samples);
    state.SamplingSeconds = static_cast<std::int16_t>(options.intervalSeconds);
    state.TwaAlarm = options.twa.value_or(state.TwaAlarm);
    state.StelAlarm = options.stel.value_or(state.StelAlarm);
    state.CAlarm = options.ceiling.value_or(state.CAlarm);
}

} // namespace quorvane
