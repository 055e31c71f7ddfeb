#pragma once

#include "serial/PortDescriptions.h"
#include "serial/PortNames.h"
#include "serial/SerialControl.h"

#include <optional>
#include <vector>

namespace quorvane {

/// A port as it was opened.
struct OpenedPort {
    PortDevice device;
    LineSettings line;
};

/// Finds the adapter of a measurement again after it was pulled out, and opens it as it was. It shows no
/// message and keeps to the line settings of its beginning, whatever is edited meanwhile.
class PortReturn {
public:
    struct Parts {
        SerialControl& control;
        const PortNames& names; ///< the system's: the adapter may come back under another of its names
        const PortDescriptions& descriptions;
    };
    explicit PortReturn(const Parts& parts) : parts_(parts) {}

    /// Remembers which adapter is at `port`, while it is there.
    void Begin(const OpenedPort& port);

    /// One look, for a port that was lost. The same adapter is the one with the same maker, product and
    /// serial number; without a serial number, or when another device shares it, the one in the same socket;
    /// of a device that has neither (a port on the board, a virtual one) the one at the same path. Any other
    /// device is left alone. A device that does not open, because its permissions are not set yet or somebody
    /// has it for a moment, is tried again at the next look.
    /// @return whether the port is open again, with an empty buffer
    [[nodiscard]] bool Look();

private:
    /// By what the adapter is known again.
    enum class Mark { Path, Place, SerialNumber };
    [[nodiscard]] std::vector<PortDevice> Candidates() const;
    [[nodiscard]] bool HasTwin() const;
    [[nodiscard]] bool IsAtPlace(const PortDescription& description) const;
    [[nodiscard]] std::optional<PortDevice> Find() const;

    Parts parts_;
    std::optional<OpenedPort> port_;
    PortDescription adapter_;
    Mark mark_ = Mark::Path;
};

} // namespace quorvane
