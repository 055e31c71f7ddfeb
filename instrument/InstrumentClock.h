#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "app/Texts.h"
#include "instrument/CommandExchange.h"

#include <string>
#include <string_view>

namespace quorvane {

/// The computer's date and time in the instrument's form.
struct ClockTexts {
    std::string date; ///< "yyyy/MM/dd"
    std::string time; ///< "hh:mm:ss"
};

/// Reads the regional settings into `description`.
[[nodiscard]] ClockTexts ComputerClock(LocaleDescription& description, const LocaleItems& locale,
                                       const Texts& texts, LocalMoment now);

/// The command that sets the instrument's clock: "T2024;05;01;09;30;00", each part taken by its position in
/// the two texts.
[[nodiscard]] InstrumentCommand ClockCommand(const ClockTexts& clock);

/// Date (characters 1 to 10) and time (12 to 19) of a clock record; empty texts for an empty record.
[[nodiscard]] ClockTexts CutClockRecord(std::string_view record);

/// Reads the instrument's clock.
class InstrumentClock {
public:
    InstrumentClock(const ComputerSettings& mode, PortLink& link, SerialControl& control, SerialLog& log)
        : mode_(mode), link_(link), control_(control), log_(log)
    {
    }

    /// The "M" exchange: acknowledgement in up to three reads, each behind three ticks of 100 ms, a fourth
    /// read fails; then up to 100 reads without a wait in between for the record of 21 characters.
    /// A failure is logged as "M Command", with what the last read brought and the number of reads that the
    /// missing part was given, and the received characters are dropped; nothing is shown. Over a closed port
    /// nothing is sent and nothing logged: this is called every second.
    /// With `RunMode` false it touches no port: `computer`, joined by ";", is the result.
    /// @return the record, "yyyy/MM/dd hh:mm:ss" and CR LF; empty after a failure and when it was cancelled
    [[nodiscard]] std::string ReadInstrumentClock(const ClockTexts& computer);

    /// Drops what came of earlier reads too late to be taken, so that it is not taken for the answer to the
    /// next command. The answer to a cancelled read is waited for, as long as the read itself would have.
    /// Does nothing when there was no read since the last call.
    void DropLateAnswer();

private:
    [[nodiscard]] bool ReadRecord(CommandReply& answer);

    const ComputerSettings& mode_;
    PortLink& link_;
    SerialControl& control_;
    SerialLog& log_;
    bool asked_ = false;         ///< since the last drop
    bool answerMissing_ = false; ///< of a read that was cancelled
};

} // namespace quorvane
