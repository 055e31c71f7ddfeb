#include "app/ExitStatus.h"
#include "app/ProgramVersion.h"
#include "platform/Platform.h"
#include "simulator/DeviceLink.h"
#include "simulator/InstrumentOptions.h"
#include "simulator/LineServer.h"

#include <csignal>
#include <exception>
#include <iostream>
#include <memory>
#include <vector>

using namespace quorvane;

namespace {

int Complain(const std::string& text)
{
    std::cerr << "quorvane-instrument: " << text << std::endl;
    return kExitFailed;
}

/// @return why the readings cannot be had, or nothing and the readings
std::optional<std::string> OpenReadings(const InstrumentOptions& options, const FileStore& files,
                                        std::unique_ptr<ReadingSource>& readings)
{
    if (options.readingsPath.empty()) {
        readings = std::make_unique<GeneratedDust>();
        return std::nullopt;
    }
    std::string text;
    if (const auto fault = files.ReadWhole(options.readingsPath, text))
        return options.readingsPath + ": " + fault->systemReason;
    std::vector<double> values;
    if (auto fault = ParseReadings(text, values))
        return options.readingsPath + ": " + *fault;
    readings = std::make_unique<RecordedReadings>(std::move(values), options.atEnd);
    return std::nullopt;
}

int Serve(const InstrumentOptions& options, const LocalClock& clock, std::unique_ptr<ReadingSource> readings)
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
    const auto plugTurned = [&](bool plugged) {
        if (!plugged)
            link.Remove();
        else if (auto fault = link.PointTo(terminal.Path()))
            Complain(*fault);
    };
    InstrumentSetup setup = options.setup;
    setup.clockAtPowerOn = options.startAt.value_or(clock.Now());
    SimulatedInstrument instrument(std::move(setup), std::move(readings));
    TrafficLog log(options.verbose ? &std::cerr : nullptr);
    LineServer server(instrument, terminal, stop, log, newDevice, plugTurned);
    switch (server.Serve()) {
    case LineServer::End::Stopped:
        return kExitDone;
    case LineServer::End::HungUp:
        Complain("the device has gone away, as its fault hang-up says");
        return kExitDone;
    case LineServer::End::Failed:
        break;
    }
    return Complain(server.FailureText());
}

int Run(const std::vector<std::string>& arguments)
{
    InstrumentOptions options;
    if (auto fault = ReadInstrumentOptions(arguments, options)) {
        Complain(fault->text);
        std::cerr << '\n' << InstrumentUsage();
        return kExitUsage;
    }
    if (options.help) {
        std::cout << InstrumentUsage();
        return kExitDone;
    }
    if (options.version) {
        std::cout << "quorvane-instrument " << VersionNumber(kProgramVersion) << '\n';
        return kExitDone;
    }
    const Platform platform = MakePlatform();
    std::unique_ptr<ReadingSource> readings;
    if (auto fault = OpenReadings(options, *platform.files, readings))
        return Complain(*fault);
    return Serve(options, *platform.clock, std::move(readings));
}

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN); // whoever reads the path or the traffic may stop reading
    try {
        return Run(ProgramArguments(argc, argv));
    } catch (const std::exception& error) {
        return Complain(error.what());
    }
}
