#pragma once

#include "simulator/SimulatedInstrument.h"

#include <ostream>
#include <string>
#include <string_view>

namespace quorvane {

/// The bytes as one line of text: "\r", "\n", "\\" and "\xNN" for what cannot be shown.
[[nodiscard]] std::string VisibleText(std::string_view bytes);

/// What passes over the line, with the seconds since power-on in front.
class TrafficLog {
public:
    /// Writes to `out`; to nowhere when it is nullptr.
    explicit TrafficLog(std::ostream* out) : out_(out) {}
    void Note(SimulatedInstrument::Time now, std::string_view what, std::string_view bytes = {});

private:
    std::ostream* out_;
};

} // namespace quorvane
