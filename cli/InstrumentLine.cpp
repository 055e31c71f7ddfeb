#include "cli/InstrumentLine.h"

#include "app/ProgramVersion.h"
#include "files/SettingsFile.h"

#include <utility>

namespace quorvane {

InstrumentLine::InstrumentLine(CommandWorld& world, const std::string& port, NamedFiles files)
    : world_(world),
      prompts_(world.console, std::move(files)),
      port_(*world.platform.portNames, port),
      timer1_(pump_),
      log_(world.state, *world.platform.files, *world.platform.codePage, *world.platform.clock,
           *world.platform.locale),
      link_(world.state, {*world.platform.serial, port_, pump_, timer1_, prompts_, log_, world.texts})
{
    Platform& system = world.platform;
    SettingsFile(world.state, *system.files, *system.codePage, *system.clock, *system.locale, kProgramVersion)
        .LoadSettings();
    pump_.OnIdle([this] {
        PassInterruptsOn();
        world_.console.Flush();
    });
}

void InstrumentLine::WaitForReader()
{
    const int interrupts = interruptsSeen_; // one that came since the last wait means this one
    while (!world_.console.Flush() && interrupts_.Count() == interrupts)
        static_cast<void>(pump_.Serve(kNap));
}

void InstrumentLine::PassInterruptsOn()
{
    for (; interruptsSeen_ < interrupts_.Count(); ++interruptsSeen_) {
        if (interrupted_)
            interrupted_();
    }
}

} // namespace quorvane
