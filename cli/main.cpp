#include "app/ExitStatus.h"
#include "app/ProgramVersion.h"
#include "cli/Console.h"
#include "cli/MeasureCommand.h"
#include "cli/MeasureOptions.h"
#include "cli/PortsCommand.h"
#include "cli/RecoverCommand.h"
#include "cli/RecoverOptions.h"
#include "cli/SettingCommands.h"
#include "cli/SettingOptions.h"
#include "platform/Platform.h"

#include <exception>
#include <span>
#include <string>

namespace {

using namespace quorvane;

std::string Usage()
{
    return "Usage:\n"
           "  quorvane-cli measure (--port DEVICE|COMn | --simulate) --samples N --interval S --output FILE\n"
           "                       [options]\n"
           "  quorvane-cli recover (--output FILE [--journal FILE | --previous] | --discard [--journal FILE] "
           "| "
           "--list)\n"
           "  quorvane-cli ports\n"
           "  quorvane-cli check [--port DEVICE|COMn]\n"
           "  quorvane-cli clock [--set] [--port DEVICE|COMn]\n"
           "  quorvane-cli program (--file FILE.ini | --start TIME --measure-time HH:MM --count N) [--send]\n"
           "                       [--port DEVICE|COMn]\n"
           "  quorvane-cli k-factor VALUE [--send] [--port DEVICE|COMn]\n"
           "  quorvane-cli --help | --version\n"
           "\n"
           "Options of measure:\n" +
           MeasureUsage() + "\nOptions of recover:\n" + RecoverUsage() + "\n" + SettingUsage() +
           "\n"
           "What is not given comes from the settings file Quorvane.ini in the program's folder (in the "
           "user's data\n"
           "folder, when that one cannot be written), or in the folder that the environment variable\n"
           "QUORVANE_HOME names. Ctrl-C stops the run and saves what was taken; a second Ctrl-C also gives "
           "up\n"
           "the stop exchange with the instrument.\n"
           "A run without a single reading leaves an existing file as it is. On a terminal a line tells how\n"
           "the run is getting on: readings taken/planned, time left, and lines behind when there are "
           "several.\n"
           "While it measures, measure keeps a journal of the run beside the settings file, until the "
           "readings "
           "are\n"
           "saved. When it ends unexpectedly, recover saves them from there.\n"
           "The commands check, clock, program and k-factor talk to an instrument also when the settings are "
           "for\n"
           "made-up readings. They leave the settings file as it is; Ctrl-C cancels them.\n"
           "Exit status: 0 done (measure, recover: saved), 1 it failed or was refused, 2 wrong usage.";
}

int Print(const std::string& text)
{
    Console console(false);
    console.Print(text);
    console.FlushAll();
    return kExitDone;
}

int Complain(const std::string& text, int status)
{
    Console console(false);
    console.Say("quorvane-cli: " + text);
    console.FlushAll();
    return status;
}

int WrongUsage(const std::string& fault)
{
    return Complain(fault + "\n\n" + Usage(), kExitUsage);
}

int Help()
{
    return Print(Usage());
}

int Measure(std::span<const std::string> arguments)
{
    MeasureOptions options;
    if (const auto fault = ReadMeasureOptions(arguments, options))
        return WrongUsage(fault->text);
    return options.help ? Help() : RunMeasureCommand(options);
}

int Recover(std::span<const std::string> arguments)
{
    RecoverOptions options;
    if (const auto fault = ReadRecoverOptions(arguments, options))
        return WrongUsage(fault->text);
    return options.help ? Help() : RunRecoverCommand(options);
}

int Set(SettingAction action, std::span<const std::string> arguments)
{
    SettingOptions options;
    if (const auto fault = ReadSettingOptions(action, arguments, options))
        return WrongUsage(fault->text);
    return options.help ? Help() : RunSettingCommand(options);
}

int Dispatch(std::span<const std::string> arguments)
{
    if (arguments.empty())
        return WrongUsage("a command is missing");
    const std::string& command = arguments.front();
    const auto rest = arguments.subspan(1);
    if (command == "measure")
        return Measure(rest);
    if (command == "recover")
        return Recover(rest);
    if (const auto action = SettingActionNamed(command))
        return Set(*action, rest);
    if (command != "ports" && command != "--help" && command != "--version")
        return WrongUsage("there is no command " + Quoted(command));
    if (!rest.empty())
        return WrongUsage(command + " takes no argument");
    if (command == "ports")
        return RunPortsCommand();
    if (command == "--help")
        return Help();
    return Print("quorvane-cli " + VersionNumber(kProgramVersion));
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return Dispatch(ProgramArguments(argc, argv));
    } catch (const std::exception& error) {
        return Complain(error.what(), kExitFailed);
    }
}
