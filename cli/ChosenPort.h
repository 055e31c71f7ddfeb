#pragma once

#include "app/ApplicationState.h"
#include "serial/PortNames.h"

#include <optional>
#include <string>

namespace quorvane {

/// Whether a --port value is the name of a COM port ("COM3", in any case of letters) and not a device.
[[nodiscard]] bool IsComName(const std::string& port);

/// Puts the port that was named over the one of the settings. An empty text names none.
void ApplyPort(const std::string& port, PortSettings& settings);

/// The device that --port names directly; COM names go to the system's own table.
class ChosenPort : public PortNames {
public:
    /// @param port  the value of --port; empty: the port of the settings counts
    ChosenPort(const PortNames& system, std::string port);
    [[nodiscard]] std::optional<PortDevice> Device(int commPort) const override;
    [[nodiscard]] bool Present(const PortDevice& device) const override;

private:
    const PortNames& system_;
    std::string port_;
};

} // namespace quorvane
