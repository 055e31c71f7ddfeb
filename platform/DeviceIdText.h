#pragma once

#include <string_view>

namespace quorvane {

/// The name that a system shows for a port without the port's own in brackets: "USB Serial Port" of
/// "USB Serial Port (COM3)".
[[nodiscard]] std::string_view WithoutPortName(std::string_view friendlyName, std::string_view portName);

/// The serial number in a device's instance id, its last piece: "A50285BI" of
/// "USB\VID_0403&PID_6001\A50285BI".
/// @return empty for any but a USB device, and when the device has no number and the system made a piece up,
///         which then has a "&"
[[nodiscard]] std::string_view SerialNumberIn(std::string_view instanceId);

/// Whether the device is a function of the one above it, which then has the serial number: one interface of
/// several, or a port that a driver of its own has made.
[[nodiscard]] bool BelongsToDeviceAbove(std::string_view instanceId);

/// Which port of its device an instance id is of: "MI_00" of
/// "USB\VID_0483&PID_5740&MI_00\7&1A2B&0&0000", the whole id of a port that a driver of its own has made,
/// where the letter of the port stands behind the serial number.
/// @return empty for a device with one port
[[nodiscard]] std::string_view ChannelIn(std::string_view instanceId);

} // namespace quorvane
