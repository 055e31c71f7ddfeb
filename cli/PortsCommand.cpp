#include "cli/PortsCommand.h"

#include "app/ExitStatus.h"
#include "cli/CommandWorld.h"
#include "resources/OwnTexts.h"
#include "serial/PortFaultText.h"
#include "serial/PortNotes.h"

#include <algorithm>
#include <string>

namespace quorvane {

namespace {

/// What the device says of itself, as far as a terminal may show it.
std::string Describe(const PortDevice& device, const CommandWorld& world)
{
    const PortDescription said = world.platform.portDescriptions->Describe(device);
    return DescriptionText({Printable(said.maker), Printable(said.product), Printable(said.serialNumber)},
                           world.texts);
}

} // namespace

int RunPortsCommand()
{
    CommandWorld world(false);
    for (int number = kFirstComPort; number <= kLastComPort; ++number) {
        std::string line = "COM" + std::to_string(number);
        line.resize(8, ' ');
        if (const auto device = world.platform.portNames->Device(number)) {
            const auto fault = world.platform.portProbe->Probe(*device);
            line += device->path;
            line.resize(std::max<std::size_t>(line.size() + 2, 26), ' ');
            if (const std::string described = Describe(*device, world); !described.empty())
                line += described + ": ";
            line += fault ? FaultText(*fault, world.texts) : world.texts[kPortUsableText];
        } else {
            line.resize(26, ' ');
            line += FilledIn(world.texts[kPortUnnamedText], std::to_string(number));
        }
        world.console.Print(line);
    }
    world.console.FlushAll();
    return kExitDone;
}

} // namespace quorvane
