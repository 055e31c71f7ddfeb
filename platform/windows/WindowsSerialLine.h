#pragma once

#include "platform/windows/Handle.h"
#include "serial/SerialControl.h"

#include <optional>
#include <string>

namespace quorvane {

/// Opens a device with no sharing, for overlapped use, without changing how the line is set.
/// @param line  receives the open line
/// @return why it cannot be used as a serial line, or nothing
[[nodiscard]] std::optional<PortFault> OpenLine(const std::string& path, Handle& line);

/// Writes `settings` into the system's record of a line, whatever was in it.
void SetMode(DCB& mode, const LineSettings& settings);

/// Sets an open line as `settings` say, and its reads to return at once.
/// @return why the system or the device does not take these settings, or nothing
[[nodiscard]] std::optional<PortFault> ApplyLineSettings(const Handle& line, const LineSettings& settings,
                                                         std::size_t outBufferSize);

/// Takes the handshaking off an open line, so that what held it back holds back nobody who opens it next. A
/// line that is gone stays as it is.
void EndHandshaking(const Handle& line);

} // namespace quorvane
