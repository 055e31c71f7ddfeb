#pragma once

#include "simulator/SimulatedInstrument.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane {

/// Four readings, and the lines of the first three as an instrument with factor 1.3 sends them from 09:30:00
/// on. Counts by hand: 0.008/0.0013 = 6.15, 1.25/0.0013 = 961.54, 0.0325/0.0013 = 25 (and 0.0325 shows as
/// 0.033).
inline const std::vector<double> kValues = {0.008, 1.25, 0.0325, 0};
inline const std::string kLine1 = "09:30:01;0000006;000.008;1.3\r\n";
inline const std::string kLine2 = "09:30:02;0000962;001.250;1.3\r\n";
inline const std::string kLine3 = "09:30:03;0000025;000.033;1.3\r\n";

/// A setup from half past nine on, with faults as they are written on the command line.
inline InstrumentSetup With(const std::vector<std::string_view>& faults, double speed = 1)
{
    InstrumentSetup setup;
    setup.clockAtPowerOn = LocalMoment(std::chrono::hours(9) + std::chrono::minutes(30));
    setup.speed = speed;
    for (const std::string_view text : faults)
        EXPECT_FALSE(ReadFault(text, setup.faults.emplace_back())) << text;
    return setup;
}

/// An instrument that replays `kValues`.
class Device : public SimulatedInstrument {
public:
    explicit Device(InstrumentSetup setup = With({}), std::vector<double> values = kValues,
                    AtEnd atEnd = AtEnd::Repeat)
        : SimulatedInstrument(std::move(setup), std::make_unique<RecordedReadings>(std::move(values), atEnd))
    {
    }
    /// What it says at once to `bytes`, with what was due by then.
    std::string Ask(std::string_view bytes, Time now)
    {
        Receive(bytes, now);
        return Take(now);
    }
};

} // namespace quorvane
