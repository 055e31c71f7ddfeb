#include "serial/PortLink.h"

#include "app/ScopedFlag.h"
#include "resources/SystemTexts.h"
#include "serial/CommandSet.h"
#include "serial/LineSettingsText.h"
#include "serial/PortFaultText.h"

#include <string>

namespace quorvane {

using namespace std::chrono_literals;

namespace {

constexpr int kMaxReads = 100;

} // namespace

PortLink::PortLink(ApplicationState& state, const Parts& parts)
    : state_(state),
      control_(parts.control),
      names_(parts.names),
      pump_(parts.pump),
      timer1_(parts.timer1),
      prompts_(parts.prompts),
      log_(parts.log),
      texts_(parts.texts)
{
    timer1_.OnTick([this] { ++state_.WaitSeconds; });
}

bool PortLink::OpenPort()
{
    if (!state_.RunMode || control_.IsOpen())
        return true;

    const auto device = names_.Device(PortNumber(state_.RsPort));
    const auto line = ReadLineSettings(state_);
    if (!device)
        lastFault_ = PortFault{PortFaultKind::Absent, {}};
    else if (!line)
        lastFault_ = PortFault{PortFaultKind::Unsupported, LineSettingsText(state_)};
    else
        lastFault_ = control_.Open(*device, *line);

    if (lastFault_) {
        prompts_.Show(
            {.text = state_.RsPort + texts_[kPortNotUsedText], .detail = FaultText(*lastFault_, texts_)});
        return false;
    }
    opened_ = OpenedPort{*device, *line};
    control_.ClearInBuffer();
    control_.SetInputLen(0);
    return true;
}

void PortLink::ClosePort()
{
    if (state_.RunMode && control_.IsOpen())
        control_.Close();
}

WaitOutcome PortLink::WaitTicks(int count, std::chrono::milliseconds interval)
{
    if (!ClaimLine())
        return WaitOutcome::Cancelled;

    const ScopedFlag waiting(waiting_);
    const bool portWasOpen = control_.IsOpen();
    cancelled_ = false;
    state_.WaitSeconds = 0;
    timer1_.SetInterval(interval);
    timer1_.Enable();
    WaitOutcome outcome = WaitOutcome::Elapsed;
    while (outcome == WaitOutcome::Elapsed && state_.WaitSeconds < count) {
        if (!pump_.Serve(kNap))
            outcome = WaitOutcome::Closing;
        else if (cancelled_)
            outcome = WaitOutcome::Cancelled;
        else if (portWasOpen) {
            static_cast<void>(control_.InBufferCount()); // takes in what came, and notices a loss
            if (!control_.IsOpen())
                outcome = WaitOutcome::PortLost;
        }
    }
    timer1_.Disable();
    return outcome;
}

void PortLink::Cancel()
{
    cancelled_ = true; // a wait that begins later clears it
}

bool PortLink::ClaimLine()
{
    if (waiting_)
        cancelled_ = true;
    return !waiting_ && !streaming_;
}

void PortLink::DiscardInput()
{
    control_.ClearInBuffer();
    control_.SetInputLen(0);
    static_cast<void>(control_.Input());
}

/// Until the line has been quiet for a whole second. There is no limit on the repetitions: an instrument
/// that keeps sending keeps the program here until the operator stops.
WaitOutcome PortLink::DrainUntilQuiet()
{
    WaitOutcome outcome = WaitOutcome::Elapsed;
    do {
        control_.ClearInBuffer();
        outcome = WaitTicks(1, 1000ms);
    } while (outcome == WaitOutcome::Elapsed && control_.InBufferCount() > 0);
    return outcome;
}

struct PortLink::LinkCheck {
    bool answered = false;
    WaitOutcome wait = WaitOutcome::Elapsed; ///< how the last wait ended
    std::string reply;
    int reads = 0;
};

void PortLink::ExchangeLinkCheck(LinkCheck& check)
{
    DiscardInput();
    if (!control_.Output(Request(kLinkCheckLetter))) // only wakes the instrument; its answer is drained
        return;
    check.wait = DrainUntilQuiet();
    if (check.wait != WaitOutcome::Elapsed)
        return;

    control_.SetInputLen(1);
    if (!control_.Output(Request(kLinkCheckLetter)))
        return;
    check.wait = WaitTicks(5, 100ms);
    if (check.wait != WaitOutcome::Elapsed)
        return;

    // No pause between the reads: the whole answer must be there by now, and a stray character before it
    // is meant to fail the check.
    const std::string answer = BareAcknowledgement(kLinkCheckLetter);
    while (check.reply != answer) {
        check.reply += control_.Input();
        if (++check.reads > kMaxReads)
            return;
    }
    check.answered = true;
}

bool PortLink::CheckInstrument()
{
    checkInterrupted_ = false;
    if (!state_.RunMode)
        return true;
    if (!ClaimLine())
        return false;

    LinkCheck check;
    ExchangeLinkCheck(check);
    control_.SetInputLen(0);
    checkInterrupted_ = IsInterrupted(check.wait);
    if (!check.answered && !checkInterrupted_) {
        if (!control_.IsOpen())
            check.reply += control_.Input(); // what had come before the port was lost
        log_.LogSerialError(CommandName(kLinkCheckLetter), check.reply, check.reads);
    }
    return check.answered;
}

} // namespace quorvane
