#pragma once

#include "app/ApplicationState.h"
#include "serial/SerialControl.h"

#include <optional>
#include <string>

namespace quorvane {

/// The port number in `RsPort`, its text from the fourth character on: "COM12" gives 12.
/// @return 0 when no number stands there
[[nodiscard]] int PortNumber(const std::string& rsPort);

/// The line settings as text: speed, parity, data bits and stop bits with "," between them: "38400,N,8,1".
[[nodiscard]] std::string LineSettingsText(const PortSettings& port);

/// What the control is opened with: the settings text taken apart, handshaking `RsFlow` - 1, and the
/// input buffer of 10,240 bytes.
/// @return nothing when a field holds something that no line can be set to
[[nodiscard]] std::optional<LineSettings> ReadLineSettings(const PortSettings& port);

} // namespace quorvane
