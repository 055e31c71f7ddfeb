#include "simulator/SimulatedInstrument.h"

#include "files/NumberText.h"
#include "instrument/DateTimeText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kMostWaiting = 1U << 20U; // bytes
constexpr std::size_t kLongestCommand = 256;    // far beyond any; noise without a line end is dropped then
constexpr double kMostCount = 9999999;
constexpr double kMostConc = 999.999; // mg/m3
constexpr NumberPattern kCountPattern{7, 0, 0};
constexpr NumberPattern kConcPattern{3, 3, 3};
constexpr NumberPattern kFactorPattern{1, 1, 1};
constexpr auto kChatterPause = 5ms;
constexpr int kChatterBytes = 4;

} // namespace

SimulatedInstrument::SimulatedInstrument(InstrumentSetup setup, std::unique_ptr<ReadingSource> readings)
    : setup_(std::move(setup)),
      memory_(setup_.clockAtPowerOn, setup_.speed, setup_.factor),
      readings_(std::move(readings))
{
}

void SimulatedInstrument::Receive(std::string_view bytes, Time now)
{
    RunTo(now);
    if (hangUpTime_)
        return;
    received_.append(bytes);
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = received_.find(kLineEnd, begin)) != std::string::npos;) {
        Command(std::string_view(received_).substr(begin, end - begin), now);
        begin = end + kLineEnd.size();
    }
    received_.erase(0, begin);
    if (received_.size() > kLongestCommand)
        received_.clear();
}

std::string SimulatedInstrument::Take(Time now)
{
    RunTo(now);
    return std::exchange(sent_, {});
}

std::optional<SimulatedInstrument::Time> SimulatedInstrument::NextDue() const
{
    if (!sent_.empty())
        return Time::zero();
    return NextEvent();
}

bool SimulatedInstrument::HungUp(Time now) const
{
    return hangUpTime_ && *hangUpTime_ <= now;
}

bool SimulatedInstrument::Unplugged(Time now) const
{
    return pull_ && pull_->out <= now && now < pull_->in;
}

std::optional<SimulatedInstrument::Time> SimulatedInstrument::NextTurnOfPlug(Time now) const
{
    if (!pull_ || pull_->in <= now)
        return std::nullopt;
    return now < pull_->out ? pull_->out : pull_->in;
}

void SimulatedInstrument::Command(std::string_view text, Time now)
{
    struct CommandRule {
        char letter;
        void (SimulatedInstrument::*answer)(std::string_view parameters, Time now);
    };
    static constexpr CommandRule kCommands[] = {
        {'N', &SimulatedInstrument::OnLinkCheck}, {'D', &SimulatedInstrument::OnStartStream},
        {'P', &SimulatedInstrument::OnProgram},   {'T', &SimulatedInstrument::OnSetClock},
        {'M', &SimulatedInstrument::OnReadClock}, {'E', &SimulatedInstrument::OnSetFactor},
    };
    if (text.empty())
        return;
    stream_.reset(); // whatever is said to it, understood or not
    const char letter = text.front();
    if (Fault(FaultKind::Silent, letter) != nullptr)
        return;
    for (const CommandRule& rule : kCommands)
        if (rule.letter == letter)
            (this->*rule.answer)(text.substr(1), now);
}

void SimulatedInstrument::OnLinkCheck(std::string_view parameters, Time now)
{
    if (parameters.empty())
        Acknowledge('N', now);
}

void SimulatedInstrument::OnStartStream(std::string_view parameters, Time now)
{
    if (!parameters.empty())
        return;
    const Time start = Acknowledge('D', now);
    stream_ = Stream{start, memory_.ClockAt(start)};
    readings_->Restart();
}

void SimulatedInstrument::OnProgram(std::string_view parameters, Time now)
{
    if (memory_.SetProgram(parameters))
        Acknowledge('P', now);
}

void SimulatedInstrument::OnSetClock(std::string_view parameters, Time now)
{
    if (memory_.SetClock(parameters, now))
        Acknowledge('T', now);
}

void SimulatedInstrument::OnReadClock(std::string_view parameters, Time now)
{
    if (!parameters.empty())
        return;
    const Time start = Acknowledge('M', now);
    // Behind the whole acknowledgement, so that a split one leaves the record a pause of its own.
    Send(memory_.ClockRecord(start), queue_.empty() ? start : std::max(start, queue_.back().due));
}

void SimulatedInstrument::OnSetFactor(std::string_view parameters, Time now)
{
    if (memory_.SetFactor(parameters))
        Acknowledge('E', now);
}

/// @return when the acknowledgement is sent, or would be
SimulatedInstrument::Time SimulatedInstrument::Acknowledge(char letter, Time now)
{
    if (Fault(FaultKind::NoAck, letter) != nullptr)
        return now;
    const InstrumentFault* const late = Fault(FaultKind::LateAck, letter);
    const Time due = late != nullptr ? now + std::chrono::milliseconds(late->timeMs) : now;
    std::string text = {'A', Fault(FaultKind::WrongAck, letter) != nullptr ? 'X' : letter};
    Send(text.append(kLineEnd), due);
    return due;
}

void SimulatedInstrument::RunTo(Time now)
{
    while (sent_.size() < kMostWaiting) {
        const std::optional<Time> next = NextEvent();
        if (!next || *next > now)
            return;
        if (!queue_.empty() && queue_.front().due <= *next) {
            sent_.append(queue_.front().bytes);
            queue_.pop_front();
        } else if (stream_ && NextLineDue() <= *next) {
            MakeLine();
        } else {
            MakeChatter();
        }
    }
}

std::optional<SimulatedInstrument::Time> SimulatedInstrument::NextEvent() const
{
    std::optional<Time> next;
    const auto consider = [&next](Time time) { next = next ? std::min(*next, time) : time; };
    if (!queue_.empty())
        consider(queue_.front().due);
    if (stream_)
        consider(NextLineDue());
    if (Fault(FaultKind::Chatter) != nullptr && !hangUpTime_)
        consider(chatterDue_);
    return next;
}

SimulatedInstrument::Time SimulatedInstrument::NextLineDue() const
{
    // From the start of the stream, not from the line before: so rounding does not add up.
    const double nanoseconds = static_cast<double>(stream_->lines + 1) *
                               static_cast<double>(Time(setup_.interval).count()) / setup_.speed;
    return stream_->start + Time(std::llround(nanoseconds));
}

void SimulatedInstrument::MakeLine()
{
    const Time due = NextLineDue();
    const std::optional<double> conc = readings_->Next();
    if (!conc) {
        stream_.reset();
        return;
    }
    const InstrumentFault* const garbage = Fault(FaultKind::Garbage);
    if (++stream_->lines == 1 && garbage != nullptr)
        Queue(RandomBytes(garbage->count), due);
    Send(DataLine(*conc), due);

    ++linesSincePowerOn_;
    const InstrumentFault* const hangUp = Fault(FaultKind::HangUp);
    if (hangUp != nullptr && linesSincePowerOn_ == hangUp->count) {
        stream_.reset();
        hangUpTime_ = queue_.back().due;
    }
    PullAfterLine(queue_.back().due);
}

/// Half an interval behind the line, by when its reader has it.
void SimulatedInstrument::PullAfterLine(Time due)
{
    const InstrumentFault* const unplug = Fault(FaultKind::Unplug);
    if (unplug == nullptr || (pull_ && due < pull_->in) || ++linesSincePull_ < unplug->count)
        return;
    linesSincePull_ = 0;
    const double half = static_cast<double>(Time(setup_.interval).count()) / setup_.speed / 2;
    const Time out = due + Time(std::llround(half));
    pull_ = Pull{out, out + std::chrono::milliseconds(unplug->timeMs)};
}

std::string SimulatedInstrument::DataLine(double conc_mg_m3) const
{
    const double count = conc_mg_m3 * 1000 / memory_.Factor();
    const auto clock = stream_->clockAtStart + stream_->lines * setup_.interval;
    std::string line = InstrumentTimeText(std::chrono::floor<std::chrono::seconds>(clock)) + ";";
    AppendPattern(line, std::min(count, kMostCount), kCountPattern, ".");
    line += ';';
    AppendPattern(line, std::min(conc_mg_m3, kMostConc), kConcPattern, ".");
    if (!setup_.threeFields) {
        line += ';';
        AppendPattern(line, memory_.Factor(), kFactorPattern, ".");
    }
    const InstrumentFault* const noEnd = Fault(FaultKind::NoLineEnd);
    if (noEnd == nullptr || stream_->lines % noEnd->every != 0)
        line += kLineEnd;
    const InstrumentFault* const dropped = Fault(FaultKind::DroppedByte);
    if (dropped != nullptr && stream_->lines % dropped->every == 0) {
        const auto byte = static_cast<std::size_t>(dropped->byte);
        if (byte <= line.size())
            line.erase(byte - 1, 1);
    }
    return line;
}

void SimulatedInstrument::MakeChatter()
{
    sent_.append(RandomBytes(kChatterBytes));
    chatterDue_ += kChatterPause;
}

void SimulatedInstrument::Send(std::string_view bytes, Time due)
{
    const InstrumentFault* const split = Fault(FaultKind::Split);
    if (split == nullptr || bytes.size() <= static_cast<std::size_t>(split->byte)) {
        Queue(bytes, due);
        return;
    }
    const auto first = static_cast<std::size_t>(split->byte);
    Queue(bytes.substr(0, first), due);
    Queue(bytes.substr(first), due + std::chrono::milliseconds(split->timeMs));
}

void SimulatedInstrument::Queue(std::string_view bytes, Time due)
{
    // A line keeps the order of what is put on it: nothing overtakes a late answer or a split line.
    if (!queue_.empty())
        due = std::max(due, queue_.back().due);
    queue_.push_back({due, std::string(bytes)});
}

std::string SimulatedInstrument::RandomBytes(int count)
{
    std::string bytes;
    while (bytes.size() < static_cast<std::size_t>(count)) {
        const char byte = static_cast<char>(static_cast<unsigned char>(noise_.Fraction() * 256));
        if (kLineEnd.find(byte) == std::string_view::npos)
            bytes += byte;
    }
    return bytes;
}

const InstrumentFault* SimulatedInstrument::Fault(FaultKind kind, char letter) const
{
    return FindFault(setup_.faults, kind, letter);
}

} // namespace quorvane
