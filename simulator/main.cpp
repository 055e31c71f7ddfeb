#include "app/ProgramVersion.h"
#include "simulator/DeviceLink.h"
#include "simulator/InstrumentOptions.h"
#include "simulator/LineServer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <fstream>
#include <iostream>
#include <memory>
#include <system_error>
#include <vector>

using namespace quorvane;

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

int Complain(const std::string& text)
{
    std::cerr << "quorvane-instrument: " << text << std::endl;
    return kFailed;
}

LocalMoment ComputerTime()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return LocalMoment(std::chrono::seconds(timegm(&local)));
}

/// @return why the readings cannot be had, or nothing and the readings
std::optional<std::string> OpenReadings(const InstrumentOptions& options,
                                        std::unique_ptr<ReadingSource>& readings)
{
    if (options.readingsPath.empty()) {
        readings = std::make_unique<GeneratedDust>();
        return std::nullopt;
    }
    std::ifstream file(options.readingsPath, std::ios::binary);
    std::string text;
    std::array<char, 65536> chunk{};
    while (file.read(chunk.data(), chunk.size()), file.gcount() > 0)
        text.append(chunk.data(), static_cast<std::size_t>(file.gcount()));
    if (!file.is_open() || file.bad())
        return options.readingsPath + ": " + std::system_category().message(errno);
    std::vector<double> values;
    if (auto fault = ParseReadings(text, values))
        return options.readingsPath + ": " + *fault;
    readings = std::make_unique<RecordedReadings>(std::move(values), options.atEnd);
    return std::nullopt;
}

int Serve(const InstrumentOptions& options, std::unique_ptr<ReadingSource> readings)
{
    const StopSignal stop;
    PseudoTerminal terminal;
    if (auto fault = terminal.Open())
        return Complain(*fault);
    DeviceLink link(options.link);
    if (!options.link.empty())
        if (auto fault = link.PointTo(terminal.Path()))
            return Complain(*fault);
    std::cout << terminal.Path() << std::endl;

    const auto newDevice = [&] {
        Complain("a client took the line for itself and never gave it back; the device is " +
                 terminal.Path() + " from now on");
        if (!options.link.empty())
            if (auto fault = link.PointTo(terminal.Path()))
                Complain(*fault);
    };
    InstrumentSetup setup = options.setup;
    setup.clockAtPowerOn = options.startAt.value_or(ComputerTime());
    SimulatedInstrument instrument(std::move(setup), std::move(readings));
    TrafficLog log(options.verbose ? &std::cerr : nullptr);
    LineServer server(instrument, terminal, stop, log, newDevice);
    switch (server.Serve()) {
    case LineServer::End::Stopped:
        return kDone;
    case LineServer::End::HungUp:
        Complain("the device has gone away, as its fault hang-up says");
        return kDone;
    case LineServer::End::Failed:
        break;
    }
    return Complain(server.FailureText());
}

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN); // whoever reads the path or the traffic may stop reading
    const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    InstrumentOptions options;
    if (auto fault = ReadInstrumentOptions(arguments, options)) {
        Complain(fault->text);
        std::cerr << '\n' << InstrumentUsage();
        return kWrongUsage;
    }
    if (options.help) {
        std::cout << InstrumentUsage();
        return kDone;
    }
    if (options.version) {
        std::cout << "quorvane-instrument " << kProgramVersion.major << '.' << kProgramVersion.minor << '.'
                  << kProgramVersion.revision << '\n';
        return kDone;
    }
    std::unique_ptr<ReadingSource> readings;
    if (auto fault = OpenReadings(options, readings))
        return Complain(*fault);
    return Serve(options, std::move(readings));
}
