#pragma once

#include "app/LocalClock.h"
#include "simulator/InstrumentFaults.h"
#include "simulator/InstrumentMemory.h"
#include "simulator/Readings.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// How a simulated instrument is set up.
struct InstrumentSetup {
    LocalMoment clockAtPowerOn{};             ///< what its own clock shows at first
    std::chrono::milliseconds interval{1000}; ///< from one data line to the next, by its own clock
    double speed = 1;                         ///< how much faster than real time its clock runs
    double factor = 1.3;                      ///< K-factor at power-on, thousandths of mg/m3 per count
    bool threeFields = false;                 ///< data lines without the factor
    std::vector<InstrumentFault> faults;
};

/// The instrument's side of the line, without a line: bytes in, bytes out, and time is what the caller says
/// it is. Times given to it never run backwards.
class SimulatedInstrument {
public:
    /// Real time since power-on.
    using Time = InstrumentMemory::Time;

    SimulatedInstrument(InstrumentSetup setup, std::unique_ptr<ReadingSource> readings);

    /// Bytes that arrive from the line, split anywhere.
    void Receive(std::string_view bytes, Time now);
    /// What it has sent by `now` and nobody has taken yet. Once 1 MiB waits, it sends nothing more until
    /// somebody takes that; data lines are not lost by the pause but late, unless a command ends the stream.
    [[nodiscard]] std::string Take(Time now);
    /// When there will be something to take, if nothing is received before; a time gone by means now.
    [[nodiscard]] std::optional<Time> NextDue() const;
    /// @return whether it has gone away, with its last byte sent
    [[nodiscard]] bool HungUp(Time now) const;
    /// @return whether its line is unplugged; it sends on then, and nobody hears it
    [[nodiscard]] bool Unplugged(Time now) const;
    /// When its line is unplugged or plugged in next, as far as that is settled.
    [[nodiscard]] std::optional<Time> NextTurnOfPlug(Time now) const;
    /// The measuring program as the last P brought it: what stood behind the letter. Empty before the first.
    [[nodiscard]] const std::string& StoredProgram() const { return memory_.Program(); }

private:
    struct Piece {
        Time due;
        std::string bytes;
    };
    struct Stream {
        Time start;
        InstrumentMemory::ClockTime clockAtStart;
        std::int64_t lines = 0; ///< so many are made
    };

    struct Pull {
        Time out;
        Time in;
    };

    void Command(std::string_view text, Time now);
    void OnLinkCheck(std::string_view parameters, Time now);
    void OnStartStream(std::string_view parameters, Time now);
    void OnProgram(std::string_view parameters, Time now);
    void OnSetClock(std::string_view parameters, Time now);
    void OnReadClock(std::string_view parameters, Time now);
    void OnSetFactor(std::string_view parameters, Time now);
    Time Acknowledge(char letter, Time now);

    void RunTo(Time now);
    [[nodiscard]] std::optional<Time> NextEvent() const;
    [[nodiscard]] Time NextLineDue() const;
    void MakeLine();
    void PullAfterLine(Time due);
    [[nodiscard]] std::string DataLine(double conc_mg_m3) const;
    void MakeChatter();

    void Send(std::string_view bytes, Time due);
    void Queue(std::string_view bytes, Time due);
    [[nodiscard]] std::string RandomBytes(int count);
    [[nodiscard]] const InstrumentFault* Fault(FaultKind kind,
                                               char letter = InstrumentFault::kAnyCommand) const;

    InstrumentSetup setup_;
    InstrumentMemory memory_;
    std::unique_ptr<ReadingSource> readings_;
    SeededRandom noise_{7};
    std::string received_;         ///< the beginning of a command
    std::deque<Piece> queue_;      ///< in the order in which it goes out; the times never fall
    std::string sent_;             ///< ready to be taken
    std::optional<Stream> stream_; ///< while data lines are sent
    Time chatterDue_{0};           ///< the next chunk of chatter
    std::int64_t linesSincePowerOn_ = 0;
    std::optional<Time> hangUpTime_; ///< set with the last data line
    std::optional<Pull> pull_;       ///< the latest one
    std::int64_t linesSincePull_ = 0;
};

} // namespace quorvane
