#include "measure/InstrumentLines.h"

#include "serial/CommandSet.h"

#include <utility>

namespace quorvane {

using namespace std::chrono_literals;

namespace {

/// So many bytes have to wait before a line is read. A line of three fields has 26: it is taken when the next
/// one begins to arrive. That is meant.
constexpr int kEnoughBytes = 28;
/// Once the count exceeds this `Timer1` is switched off; the wait itself goes on.
constexpr int kCountedSeconds = 20;

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
            NoteLoss(read); // and wait on, for the device may come back
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

/// What a lost port has left in the buffer. Whole lines are readings, however few bytes they have.
LineRead InstrumentLines::TakeRest()
{
    control_.SetInputLen(0);
    LineRead rest;
    rest.outcome = ReadOutcome::PortLost;
    rest.text = control_.Input();
    const std::size_t end = rest.text.rfind(kLineEnd);
    if (acknowledged_ && end != std::string::npos && end + kLineEnd.size() >= kShortestLine) {
        rest.outcome = ReadOutcome::Complete;
        rest.text.resize(end + kLineEnd.size());
    }
    return rest;
}

/// The part of a line is dropped.
void InstrumentLines::NoteLoss(const LineRead& read)
{
    portLost_ = true;
    log_.LogSerialError(DataReadName(kStreamLetter), read.text, read.reads);
}

void InstrumentLines::Look()
{
    const bool nothingLeft = control_.InBufferCount() == 0;
    if (nothingLeft && !control_.IsOpen() && !portLost_)
        NoteLoss({});
}

void InstrumentLines::End()
{
    static_cast<void>(control_.InBufferCount());
    if (control_.IsOpen() || portLost_)
        return;
    control_.SetInputLen(0);
    NoteLoss({.outcome = ReadOutcome::PortLost, .text = control_.Input(), .reads = 0});
}

int InstrumentLines::Behind()
{
    if (lastLength_ == 0)
        return 0;
    return control_.InBufferCount() / static_cast<int>(lastLength_);
}

} // namespace quorvane
