#pragma once

#include "serial/SerialControl.h"

#include <chrono>
#include <functional>
#include <string>

namespace quorvane {

/// The shortest data line: three fields and CR LF.
inline constexpr std::size_t kShortestLine = 26;

enum class ReadOutcome { Complete, Stopped, Failed, PortLost };

struct LineRead {
    ReadOutcome outcome = ReadOutcome::Failed;
    std::string text; ///< what was read, whatever the outcome
    int reads = 0;    ///< reads that count towards the limit
};

/// Serves events for that long. @return false when the run has to end: stopped, or the program closes
using RunServe = std::function<bool(std::chrono::milliseconds)>;

/// @return whether `text` ends in CR LF and is long enough for a data line
[[nodiscard]] bool IsWholeLine(const std::string& text);

/// Reads the acknowledgement and the data lines of a measurement, one character a read. A read that brings
/// nothing waits a full millisecond and serves events, because a serial adapter may hold the rest of a line
/// back for some of these.
class LineReader {
public:
    LineReader(SerialControl& control, RunServe serve);

    /// Reads until the text begins with "AD" and ends in CR LF; fails after 1000 reads.
    [[nodiscard]] LineRead ReadAcknowledgement();
    /// Reads until the text is a whole data line; an acknowledgement line in front of it is left out. Fails
    /// when 100 reads in a row bring nothing.
    [[nodiscard]] LineRead ReadDataLine();

private:
    enum class Look { Character, Nothing, Stopped, PortLost };
    [[nodiscard]] Look ReadCharacter(std::string& text);

    SerialControl& control_;
    RunServe serve_;
    int charactersInARow_ = 0;
};

} // namespace quorvane
