#pragma once

#include "serial/PortDescriptions.h"
#include "serial/PortNames.h"

#include <map>
#include <optional>
#include <string>

namespace quorvane {

/// Ports "/dev/fake/n" as the script plugs them in; all others are absent.
class ScriptedPorts : public PortProbe, public PortDescriptions {
public:
    struct Plugged {
        std::optional<PortFault> fault{};
        PortDescription description{};
    };
    std::map<int, Plugged> plugged; ///< by the port's number
    mutable int probes = 0;

    [[nodiscard]] std::optional<PortFault> Probe(const PortDevice& device) const override
    {
        ++probes;
        const Plugged* const found = Find(device);
        return found != nullptr ? found->fault : PortFault{PortFaultKind::Absent, "nothing there"};
    }
    [[nodiscard]] PortDescription Describe(const PortDevice& device) const override
    {
        const Plugged* const found = Find(device);
        return found != nullptr ? found->description : PortDescription{};
    }

private:
    [[nodiscard]] const Plugged* Find(const PortDevice& device) const
    {
        const auto found = plugged.find(std::stoi(device.path.substr(device.path.rfind('/') + 1)));
        return found != plugged.end() ? &found->second : nullptr;
    }
};

} // namespace quorvane
