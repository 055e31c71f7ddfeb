#pragma once

#include "app/ApplicationState.h"
#include "app/Texts.h"
#include "measure/MeasurementRun.h"

#include <chrono>
#include <string>

namespace quorvane {

/// "1:02:03" or "02:03".
[[nodiscard]] std::string DurationText(std::chrono::seconds time);

/// What a status bar says, one text for each of its fields; a field with nothing to say is empty.
struct RunStatusText {
    std::string state;    ///< "Measuring", "Port lost since 10:23:45; waiting for COM1"
    std::string mode;     ///< "Instrument" or "SIMULATED"
    std::string port;     ///< "COM1", "COM1 (not connected)"; empty when the readings are simulated
    std::string sample;   ///< "Sample 3 of 3600"
    std::string timeLeft; ///< "Time left 59:57", while a run is under way
    std::string behind;   ///< "2 lines waiting", when the instrument is ahead of the program
    std::string age;      ///< "Last reading 3 s ago" while the run measures, or "No data from the instrument"
    bool stale = false;   ///< the newest values are old: two sampling intervals went by without a reading
    bool noData = false;  ///< `age` says that no data comes
};

/// "Port lost since 10:23:45; waiting for COM3", for a status whose port is lost.
[[nodiscard]] std::string PortLossText(const RunStatus& status, const std::string& port, const Texts& texts);

/// @param portPresent  whether there is a device behind the port of the settings
[[nodiscard]] RunStatusText StatusText(const ApplicationState& state, RunState runState,
                                       const RunStatus& status, const Texts& texts, bool portPresent = true);

} // namespace quorvane
