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
/// From a loss to the first look for the device, and between looks. What has just gone is not back at once,
/// and its device may still be there for a moment.
constexpr std::chrono::milliseconds kLookPause{500};

} // namespace

InstrumentLines::InstrumentLines(RunValues& run, const Parts& parts, const RunServe& serve)
    : run_(run),
      control_(parts.control),
      timer1_(parts.timer1),
      clock_(parts.clock),
      log_(parts.log),
      lookForReturn_(parts.lookForReturn),
      serve_(serve),
      reader_(parts.control, serve)
{
}

void InstrumentLines::Begin()
{
    acknowledged_ = false;
    kept_.clear();
    lostSince_.reset();
    inFirstLine_ = false;
    gap_.reset();
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
            return {.outcome = Outcome::Stopped};
        if (wait == Wait::Enough) {
            LineRead read = ReadLine(reader_);
            switch (read.outcome) {
            case ReadOutcome::Complete:
                Keep(std::move(read.text));
                break;
            case ReadOutcome::Stopped:
                return {.outcome = Outcome::Stopped};
            case ReadOutcome::Failed:
                log_.LogSerialError(acknowledged_ ? DataReadName(kStreamLetter) : CommandName(kStreamLetter),
                                    read.text, read.reads);
                return {.outcome = Outcome::Failed, .text = std::move(read.text)};
            case ReadOutcome::PortLost:
                NoteLoss(read); // and wait on, for the device may come back
                continue;
            }
        }
        return TakeKept(sample);
    }
}

InstrumentLines::Taken InstrumentLines::TakeKept(std::int32_t sample)
{
    KeptLine line = std::move(kept_.front());
    kept_.pop_front();
    lastLength_ = line.text.size();
    if (line.gap)
        line.gap->before = sample;
    return {.outcome = Outcome::Line, .text = std::move(line.text), .gap = line.gap};
}

InstrumentLines::Wait InstrumentLines::AwaitBytes()
{
    int waitingBefore = -1;
    for (;;) {
        const bool dropping = LookAtPort();
        if (!kept_.empty())
            return Wait::Kept;
        const int waiting = inFirstLine_ ? 0 : control_.InBufferCount();
        if (waiting >= kEnoughBytes)
            return Wait::Enough;

        if (dropping || waiting != waitingBefore)
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

LineRead InstrumentLines::ReadLine(LineReader& reader)
{
    if (!acknowledged_) {
        LineRead acknowledgement = reader.ReadAcknowledgement();
        if (acknowledgement.outcome != ReadOutcome::Complete)
            return acknowledgement;
    }
    acknowledged_ = true;
    return reader.ReadDataLine();
}

// ---- the plug -------------------------------------------------------------------------------------------

/// Notices a loss and a return. @return whether bytes have come that are dropped
bool InstrumentLines::LookAtPort()
{
    static_cast<void>(control_.InBufferCount());
    const bool dropping = inFirstLine_ && DropFirstLine();
    if (control_.IsOpen())
        return dropping;
    if (lostSince_)
        LookForReturn();
    else
        NoteLoss(KeepRest());
    return dropping;
}

/// No more than what is there at the beginning, for a device that never pauses.
bool InstrumentLines::DropFirstLine()
{
    const int waiting = control_.InBufferCount();
    control_.SetInputLen(1);
    for (int left = waiting; left > 0 && inFirstLine_; --left) {
        std::string character = control_.Input();
        inFirstLine_ = lastDropped_ + character != kLineEnd;
        lastDropped_ = std::move(character);
    }
    return waiting > 0;
}

/// The part of a line is dropped. From here on lines come without an acknowledgement: the instrument has its
/// request, and sends on whether somebody listens or not.
void InstrumentLines::NoteLoss(const LineRead& read)
{
    log_.LogSerialError(DataReadName(kStreamLetter), read.text, read.reads);
    acknowledged_ = true;
    inFirstLine_ = false;
    lostSince_ = clock_.Now();
    nextLook_ = clock_.SteadyNow() + kLookPause;
}

/// Whole lines that a lost port has left are readings, and the return empties the port's buffer.
/// @return the part of a line behind them
LineRead InstrumentLines::KeepRest()
{
    while (inFirstLine_ && DropFirstLine()) // what came with the loss itself
        continue;
    // Whatever belongs to these lines is there: nothing is waited for, so nobody is served.
    LineReader reader(control_, [](std::chrono::milliseconds) { return true; });
    while (control_.InBufferCount() >= kEnoughBytes) {
        LineRead read = ReadLine(reader);
        if (read.outcome != ReadOutcome::Complete) {
            control_.ClearInBuffer();
            return read;
        }
        Keep(std::move(read.text));
    }
    control_.SetInputLen(0);
    LineRead rest{.outcome = ReadOutcome::PortLost, .text = control_.Input(), .reads = 0};
    const std::size_t end = rest.text.rfind(kLineEnd); // however few bytes they have
    if (acknowledged_ && end != std::string::npos && end + kLineEnd.size() >= kShortestLine) {
        Keep(rest.text.substr(0, end + kLineEnd.size()));
        rest.text.clear();
    }
    return rest;
}

void InstrumentLines::Keep(std::string line)
{
    kept_.push_back({std::move(line), std::exchange(gap_, std::nullopt)});
}

void InstrumentLines::LookForReturn()
{
    if (!lookForReturn_ || clock_.SteadyNow() < nextLook_)
        return;
    nextLook_ = clock_.SteadyNow() + kLookPause;
    if (!lookForReturn_())
        return;
    if (!gap_)
        gap_ = RunGap{.kind = GapKind::PortLost, .from = *lostSince_};
    gap_->to = clock_.Now();
    lostSince_.reset();
    lastDropped_.clear();
    inFirstLine_ = true;
}

void InstrumentLines::Look()
{
    static_cast<void>(LookAtPort());
}

std::optional<RunGap> InstrumentLines::End(std::int32_t taken)
{
    static_cast<void>(control_.InBufferCount());
    if (inFirstLine_)
        static_cast<void>(DropFirstLine());
    if (!control_.IsOpen() && !lostSince_) {
        control_.SetInputLen(0);
        NoteLoss({.outcome = ReadOutcome::PortLost, .text = control_.Input(), .reads = 0});
    }

    std::optional<RunGap> gap;
    const auto add = [&gap, before = taken + 1](const RunGap& part) {
        gap = RunGap{
            .before = before, .kind = GapKind::PortLost, .from = gap ? gap->from : part.from, .to = part.to};
    };
    for (const KeptLine& line : kept_) // that nobody wants any more
        if (line.gap)
            add(*line.gap);
    if (gap_)
        add(*gap_);
    if (lostSince_)
        add({.from = *lostSince_, .to = clock_.Now()});
    return gap;
}

int InstrumentLines::Behind()
{
    const int kept = static_cast<int>(kept_.size());
    if (lastLength_ == 0 || inFirstLine_)
        return kept;
    return kept + control_.InBufferCount() / static_cast<int>(lastLength_);
}

} // namespace quorvane
