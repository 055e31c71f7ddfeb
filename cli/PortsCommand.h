#pragma once

namespace quorvane {

/// Lists the COM names, the devices behind them with what they say of themselves, and why one cannot be used.
/// @return the exit status
int RunPortsCommand();

} // namespace quorvane
