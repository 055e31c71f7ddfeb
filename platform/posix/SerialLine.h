#pragma once

#include "platform/posix/FileDescriptor.h"
#include "serial/SerialControl.h"

#include <optional>
#include <string>

namespace quorvane {

/// Opens a device for this program alone, without waiting for anything and without changing how the line is
/// set. Both the port control and the port probe open lines this way.
/// @param line  receives the open line
/// @return why it cannot be used as a serial line, or nothing
[[nodiscard]] std::optional<PortFault> OpenLine(const std::string& path, FileDescriptor& line);

/// Makes an open line raw, polled and set as `settings` say.
/// @return why the system or the device does not take these settings, or nothing
[[nodiscard]] std::optional<PortFault> ApplyLineSettings(const FileDescriptor& line,
                                                         const LineSettings& settings);

/// Takes the handshaking off a line that is about to be closed, so that closing does not wait for the other
/// side to take the last bytes.
void ReleaseHandshaking(const FileDescriptor& line);

} // namespace quorvane
