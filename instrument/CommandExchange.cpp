#include "instrument/CommandExchange.h"

#include "serial/CommandSet.h"

namespace quorvane {

using namespace std::chrono_literals;

namespace {

constexpr int kAcknowledgementLength = 4; // "AP", CR LF
constexpr int kReadsLookedAt = 3;

WaitOutcome WaitBeforeRead(PortLink& link, InstrumentCommand::Waiting waiting, int read)
{
    if (waiting == InstrumentCommand::Waiting::BeforeEachRead)
        return link.WaitTicks(3, 100ms);
    return read == 1 ? link.WaitTicks(1, 2000ms) : WaitOutcome::Elapsed;
}

} // namespace

CommandReply RequestAcknowledgement(PortLink& link, SerialControl& control, const InstrumentCommand& command)
{
    CommandReply answer;
    if (command.clearInputFirst)
        control.ClearInBuffer();
    control.SetInputLen(kAcknowledgementLength);
    if (!control.Output(Request(command.letter, command.parameters)))
        return answer;

    while (!answer.acknowledged) {
        answer.wait = WaitBeforeRead(link, command.waiting, answer.reads + 1);
        if (answer.wait != WaitOutcome::Elapsed)
            break;
        answer.text = control.Input();
        if (++answer.reads > kReadsLookedAt) // meant: the fourth read counts and is not looked at
            break;
        answer.acknowledged = IsAcknowledgement(answer.text, command.letter);
    }
    return answer;
}

ExchangeOutcome CommandExchange::Send(const InstrumentCommand& command)
{
    if (!mode_.RunMode)
        return ExchangeOutcome::Completed;
    const CommandReply answer = RequestAcknowledgement(link_, control_, command);
    if (answer.acknowledged)
        return ExchangeOutcome::Completed;
    if (IsInterrupted(answer.wait))
        return ExchangeOutcome::Cancelled;

    static_cast<void>(link_.CheckInstrument()); // finds the instrument again, or logs that it does not answer
    log_.LogSerialError(CommandName(command.letter), answer.text, answer.reads);
    return link_.CheckWasInterrupted() ? ExchangeOutcome::Cancelled : ExchangeOutcome::Failed;
}

} // namespace quorvane
