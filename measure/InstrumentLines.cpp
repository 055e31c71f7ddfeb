#include "measure/InstrumentLines.h"

#include "serial/CommandSet.h"

#include <utility>

namespace quorvane {

using namespace std::chrono_literals;

namespace {

constexpr char kStreamLetter = 'D';
/// So many bytes have to wait before a line is read. A line of three fields has 26: it is taken when the next
/// one begins to arrive. That is meant.
constexpr int kEnoughBytes = 28;
/// `Timer1` counts this far and is switched off then; the wait itself goes on.
constexpr int kCountedSeconds = 20;
constexpr auto kNap = 10ms; // see the link's waits

} // namespace

InstrumentLines::InstrumentLines(RunValues& run, const Parts& parts, const RunServe& serve)
    : run_(run),
      control_(parts.control),
      timer1_(parts.timer1),
      clock_(parts.clock),
      log_(parts.log),
      serve_(serve),
      reader_(parts.control, serve)
{
}

void InstrumentLines::Begin()
{
    acknowledged_ = false;
    portLost_ = false;
    lastLength_ = 0;
    silentSince_.reset();
}

InstrumentLines::Taken InstrumentLines::Take(std::int32_t sample)
{
    run_.WaitSeconds = 0;
    timer1_.SetInterval(1000ms);
    for (;;) {
        const Wait wait = AwaitBytes();
        timer1_.Disable();
        silentSince_.reset();
        if (wait == Wait::Stopped)
            return {.outcome = Outcome::Stopped, .text = {}};

        LineRead read = wait == Wait::PortLost ? TakeRest() : ReadLine(sample);
        switch (read.outcome) {
        case ReadOutcome::Complete:
            lastLength_ = read.text.size();
            return {.outcome = Outcome::Line, .text = std::move(read.text)};
        case ReadOutcome::Stopped:
            return {.outcome = Outcome::Stopped, .text = {}};
        case ReadOutcome::Failed:
            log_.LogSerialError(acknowledged_ ? DataReadName(kStreamLetter) : CommandName(kStreamLetter),
                                read.text, read.reads);
            return {.outcome = Outcome::Failed, .text = std::move(read.text)};
        case ReadOutcome::PortLost:
            // The part of a line is dropped; the wait goes on, for the device may come back.
            portLost_ = true;
            log_.LogSerialError(DataReadName(kStreamLetter), read.text, read.reads);
            break;
        }
    }
}

InstrumentLines::Wait InstrumentLines::AwaitBytes()
{
    int waitingBefore = -1;
    for (;;) {
        const int waiting = control_.InBufferCount();
        if (waiting >= kEnoughBytes)
            return Wait::Enough;
        if (control_.IsOpen())
            portLost_ = false;
        else if (!portLost_)
            return Wait::PortLost;

        if (waiting != waitingBefore)
            silentSince_ = clock_.SteadyNow();
        waitingBefore = waiting;
        if (run_.WaitSeconds > kCountedSeconds)
            timer1_.Disable();
        else
            timer1_.Enable();
        if (!serve_(kNap))
            return Wait::Stopped;
    }
}

LineRead InstrumentLines::ReadLine(std::int32_t sample)
{
    if (sample == 1 && !acknowledged_) {
        LineRead acknowledgement = reader_.ReadAcknowledgement();
        if (acknowledgement.outcome != ReadOutcome::Complete)
            return acknowledgement;
    }
    acknowledged_ = true;
    return reader_.ReadDataLine();
}

/// What a lost port has left in the buffer: a whole line when its last bytes had come, a part of one
/// otherwise.
LineRead InstrumentLines::TakeRest()
{
    control_.SetInputLen(0);
    LineRead rest;
    rest.text = control_.Input();
    rest.outcome = acknowledged_ && IsWholeLine(rest.text) ? ReadOutcome::Complete : ReadOutcome::PortLost;
    return rest;
}

int InstrumentLines::Behind()
{
    if (lastLength_ == 0)
        return 0;
    return control_.InBufferCount() / static_cast<int>(lastLength_);
}

} // namespace quorvane
