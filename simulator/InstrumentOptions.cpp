#include "simulator/InstrumentOptions.h"

#include <cmath>

namespace quorvane {
namespace {

constexpr CommandOption kOptions[] = {
    {"--link", "PATH", "make PATH a symbolic link to the device"},
    {"--readings", "FILE.csv", "replay its second column, in mg/m3, below one header line"},
    {"--at-end", "WHAT", "after its last reading: repeat that one (default), silence, or loop"},
    {"--interval", "S", "seconds from one data line to the next, 0.1 to 900 (1)"},
    {"--speed", "F", "let its clock run F times as fast, 0.01 to 10000 (1)"},
    {"--start-at", "TIME", "start its clock at \"YYYY-MM-DD hh:mm:ss\" (the computer's time)"},
    {"--factor", "F", "K-factor at first, in thousandths, 0.1 to 9.9 in steps of 0.1 (1.3)"},
    {"--three-fields", "", "leave the factor out of the data lines"},
    {"--fault", "NAME[:ARG]", "let something go wrong, see below; several combine", true},
    {"--verbose", "", "show the traffic on standard error"},
    {"--help", "", "show this"},
    {"--version", "", "show the version"},
};

constexpr std::string_view kAtEndWords[] = {"repeat", "silence", "loop"}; // in the order of AtEnd

std::optional<UsageFault> ReadFactor(const CommandOptions& line, double& factor)
{
    if (auto fault = line.ReadDecimal("--factor", 0.1, 9.9, factor))
        return fault;
    // The data lines show one decimal; a finer factor would not be the one that they name.
    const double tenths = std::round(factor * 10);
    if (std::abs(factor * 10 - tenths) > 1e-9)
        return UsageFault{"--factor has at most one decimal, not " + Quoted(line.Text("--factor"))};
    factor = tenths / 10;
    return std::nullopt;
}

} // namespace

std::optional<UsageFault> ReadInstrumentOptions(std::span<const std::string> arguments,
                                                InstrumentOptions& options)
{
    CommandOptions line(kOptions);
    if (auto fault = line.Read(arguments))
        return fault;
    options.help = line.Has("--help");
    options.version = line.Has("--version");
    options.verbose = line.Has("--verbose");
    options.link = line.Text("--link");
    options.readingsPath = line.Text("--readings");
    options.setup.threeFields = line.Has("--three-fields");

    auto atEnd = static_cast<std::size_t>(options.atEnd);
    if (auto fault = line.ReadChoice("--at-end", kAtEndWords, atEnd))
        return fault;
    options.atEnd = static_cast<AtEnd>(atEnd);

    double intervalSeconds = 1;
    if (auto fault = line.ReadDecimal("--interval", 0.1, 900, intervalSeconds))
        return fault;
    options.setup.interval = std::chrono::milliseconds(std::llround(intervalSeconds * 1000));
    if (auto fault = line.ReadDecimal("--speed", 0.01, 10000, options.setup.speed))
        return fault;
    if (auto fault = ReadFactor(line, options.setup.factor))
        return fault;

    if (auto fault = line.ReadMoment("--start-at", options.startAt))
        return fault;
    for (const std::string& text : line.Texts("--fault")) {
        InstrumentFault fault;
        if (auto wrong = ReadFault(text, fault))
            return wrong;
        options.setup.faults.push_back(fault);
    }
    if (FindFault(options.setup.faults, FaultKind::Unplug) != nullptr && options.link.empty())
        return UsageFault{"the fault unplug needs --link, where the device comes back"};
    return std::nullopt;
}

std::string InstrumentUsage()
{
    return "Usage:\n"
           "  quorvane-instrument [options]\n"
           "\n"
           "A simulated instrument on a virtual serial line. It prints the device's path and serves until\n"
           "it is interrupted.\n"
           "\n"
           "Options:\n" +
           CommandOptions(kOptions).Help() + "\nFaults:\n" + FaultHelp();
}

} // namespace quorvane
