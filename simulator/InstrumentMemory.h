#pragma once

#include "app/LocalClock.h"

#include <chrono>
#include <string>
#include <string_view>

namespace quorvane {

/// What a simulated instrument knows by itself and what commands change: its clock, the measuring program,
/// the K-factor. A setting that has not the exact form of its command changes nothing.
class InstrumentMemory {
public:
    using Time = std::chrono::nanoseconds; ///< real time since power-on
    using ClockTime = std::chrono::local_time<std::chrono::milliseconds>;

    /// @param clock   what the clock shows at power-on
    /// @param speed   how much faster than real time it runs
    /// @param factor  K-factor in thousandths of mg/m3 per count
    InstrumentMemory(LocalMoment clock, double speed, double factor)
        : clockAtSetting_(clock), speed_(speed), factor_(factor)
    {
    }

    [[nodiscard]] ClockTime ClockAt(Time now) const;
    /// "yyyy/mm/dd hh:mm:ss" and CR LF.
    [[nodiscard]] std::string ClockRecord(Time now) const;
    /// Thousandths of mg/m3 per count.
    [[nodiscard]] double Factor() const { return factor_; }
    /// The program as it was received, without its letter; empty before the first one.
    [[nodiscard]] const std::string& Program() const { return program_; }

    /// "yyyy;MM;dd;HH;mm;ss", an existing date and time of day: the clock runs on from there, at the
    /// beginning of that second. @return whether it is one
    [[nodiscard]] bool SetClock(std::string_view parameters, Time now);
    /// "1.2": one digit, point, one digit, not 0. @return whether it is one
    [[nodiscard]] bool SetFactor(std::string_view parameters);
    /// "yyyy/mm/dd;hh:mm:ss;HH:MM;nnnnn": start, measure time below a hundred hours, number of measurements.
    /// The date exists, or it is all zeros or missing, which leaves it open. @return whether it is one
    [[nodiscard]] bool SetProgram(std::string_view parameters);

private:
    ClockTime clockAtSetting_;
    Time settingTime_{0};
    double speed_;
    double factor_;
    std::string program_;
};

} // namespace quorvane
