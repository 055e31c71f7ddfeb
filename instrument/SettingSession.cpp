#include "instrument/SettingSession.h"

#include "app/ScopedFlag.h"
#include "resources/SystemTexts.h"

#include <utility>

namespace quorvane {

using namespace std::chrono_literals;

/// Gives pointer, buttons and pages back on every way out of an exchange.
class SettingSession::ExchangeScope {
public:
    explicit ExchangeScope(SettingSession& session) : session_(session) {}
    ~ExchangeScope() { session_.EndExchange(); }
    ExchangeScope(const ExchangeScope&) = delete;
    ExchangeScope& operator=(const ExchangeScope&) = delete;

private:
    SettingSession& session_;
};

SettingSession::SettingSession(ApplicationState& state, const Parts& parts, SettingView& view)
    : state_(state),
      parts_(parts),
      view_(view),
      program_{state, parts.locale, parts.clock, parts.texts},
      exchange_(state, parts.link, parts.control, parts.log),
      instrumentClock_(state, parts.link, parts.control, parts.log)
{
    parts_.timer1.OnTick([this] { Tick(); });
}

SettingSession::~SettingSession()
{
    parts_.timer1.Disable();
}

// ---- opening and closing --------------------------------------------------------------------------------

void SettingSession::Open()
{
    if (closing_)
        return;
    Run([this] {
        const ScopedFlag sending(sending_); // nothing may be sent behind the message of the port
        static_cast<void>(parts_.link.OpenPort());
        if (closing_)
            return;
        shownInstrument_ = ReadComputerClock();
        view_.ComputerClockRead(shownInstrument_);
        view_.InstrumentClockRead(shownInstrument_);
    });
}

void SettingSession::ShowClockPage(bool shown)
{
    if (closing_)
        return;
    clockPageShown_ = shown;
    if (!shown) {
        parts_.timer1.Disable();
        return;
    }
    parts_.timer1.SetInterval(1000ms);
    if (exchanging_ != InstrumentSend::Clock)
        parts_.timer1.Enable();
}

void SettingSession::Close()
{
    if (closing_)
        return;
    closing_ = true;
    Run([this] {
        parts_.timer1.Disable();
        parts_.link.Cancel();
    });
}

/// Carries out a step that may wait. An error inside it ends it without a word, which is meant. The last step
/// to unwind closes a session that is to be closed; nothing may be touched after it.
void SettingSession::Run(const std::function<void()>& step)
{
    ++steps_;
    try {
        step();
    } catch (...) { // its guards have put everything back
    }
    if (--steps_ == 0 && closing_)
        Finish();
}

void SettingSession::Finish()
{
    parts_.link.ClosePort();
    view_.Closed(); // may be the end of the view, and of this
}

// ---- both clocks ----------------------------------------------------------------------------------------

void SettingSession::Tick()
{
    if (Busy() || closing_)
        return;
    Run([this] { ReadClocks(); });
}

void SettingSession::RefreshClock()
{
    if (Busy() || closing_)
        return;
    Run([this] {
        bool open = false;
        {
            const ScopedFlag sending(sending_); // nothing may be sent behind the message of the port
            open = OpenLine();
        }
        if (open)
            ReadClocks();
    });
}

void SettingSession::ReadClocks()
{
    Run([this] {
        const ScopedFlag reading(reading_);
        ShowClocks();
    });
    if (!waitingSend_)
        return;
    const ScopedFlag sending(sending_);
    Transmit(*std::exchange(waitingSend_, std::nullopt));
}

void SettingSession::ShowClocks()
{
    const ClockTexts computer = ReadComputerClock();
    view_.ComputerClockRead(computer);
    if (!state_.RunMode) { // meant: the time alone follows
        shownInstrument_.time = computer.time;
        view_.InstrumentClockRead(shownInstrument_);
        return;
    }
    ExchangeFailed = false;            // meant: the read follows all the same
    instrumentClock_.DropLateAnswer(); // or every later reading would be the one before
    if (Interrupted())
        return;
    std::string record;
    try {
        record = instrumentClock_.ReadInstrumentClock(computer);
    } catch (...) { // no clock is shown rather than an old one
    }
    if (Interrupted())
        return;
    shownInstrument_ = CutClockRecord(record);
    view_.InstrumentClockRead(shownInstrument_);
}

ClockTexts SettingSession::ReadComputerClock()
{
    ClockTexts computer = ComputerClock(state_, parts_.locale, parts_.texts, parts_.clock.Now());
    state_.SystemDateText = computer.date;
    state_.SystemTimeText = computer.time;
    return computer;
}

// ---- sending --------------------------------------------------------------------------------------------

void SettingSession::Send(InstrumentSend send)
{
    if (sending_ || waitingSend_ || closing_)
        return;
    Run([this, send] {
        const ScopedFlag sending(sending_);
        if (!MaySend(send))
            return;
        if (!reading_) {
            Transmit(send);
            return;
        }
        waitingSend_ = send; // the read below this handler sends it when it has unwound
        BeginExchange(send);
        parts_.link.Cancel();
    });
}

bool SettingSession::MaySend(InstrumentSend send)
{
    switch (send) {
    case InstrumentSend::Program:
        return ProgramMayBeSent();
    case InstrumentSend::Clock:
        break;
    case InstrumentSend::KFactor:
        return KFactorMayBeSent();
    }
    return true;
}

bool SettingSession::ProgramMayBeSent()
{
    std::optional<ProgramFault> fault = CheckProgram(program_);
    if (!fault && state_.RunMode)
        fault = CheckStartMoment(program_);
    if (!fault)
        return true;
    if (!fault->message.text.empty())
        parts_.prompts.Show(fault->message);
    if (!closing_)
        view_.ProgramRefused(fault->field);
    return false;
}

bool SettingSession::KFactorMayBeSent()
{
    if (IsValidKFactor(state_.KFactor))
        return true;
    parts_.prompts.Show(KFactorRangeMessage(parts_.texts));
    if (!closing_)
        view_.KFactorRefused();
    return false;
}

/// The result is told when everything can be used again; until it has been read nothing else is sent or read.
void SettingSession::Transmit(InstrumentSend send)
{
    ExchangeOutcome outcome = ExchangeOutcome::Cancelled;
    {
        const ExchangeScope scope(*this);
        outcome = Exchange(send);
    }
    if (outcome == ExchangeOutcome::Failed)
        ExchangeFailed = true;
    if (outcome == ExchangeOutcome::Cancelled || closing_)
        return;
    const int text = outcome == ExchangeOutcome::Completed ? kCompletedText : kLineErrorText;
    parts_.prompts.Show({.text = parts_.texts[text]});
}

ExchangeOutcome SettingSession::Exchange(InstrumentSend send)
{
    if (!OpenLine())
        return ExchangeOutcome::Cancelled;
    BeginExchange(send);
    instrumentClock_.DropLateAnswer();
    const InstrumentCommand command = CommandFor(send);
    if (send == InstrumentSend::Clock && state_.RunMode)
        view_.ClockRequest(command.Text());
    if (closing_) // a wait that begins now would not know of it
        return ExchangeOutcome::Cancelled;
    return exchange_.Send(command);
}

/// Opens the port when it is closed, or when its device has gone. @return whether to go on; why not has been
/// told
bool SettingSession::OpenLine()
{
    if (closing_)
        return false;
    if (state_.RunMode) {
        static_cast<void>(parts_.control.InBufferCount()); // notices a loss
        if (!parts_.control.IsOpen())
            EndExchange(); // the read that waited lost the port; its message wants no busy dialog
    }
    return parts_.link.OpenPort() && !closing_;
}

InstrumentCommand SettingSession::CommandFor(InstrumentSend send)
{
    switch (send) {
    case InstrumentSend::Program:
        return ProgramCommand(program_);
    case InstrumentSend::Clock:
        break;
    case InstrumentSend::KFactor:
        return KFactorCommand(state_.KFactor);
    }
    return ClockCommand(ComputerClock(state_, parts_.locale, parts_.texts, parts_.clock.Now()));
}

void SettingSession::BeginExchange(InstrumentSend send)
{
    if (exchanging_)
        return;
    exchanging_ = send;
    if (send == InstrumentSend::Clock)
        parts_.timer1.Disable();
    view_.ExchangeBegan(send);
}

void SettingSession::EndExchange()
{
    if (!exchanging_)
        return;
    const InstrumentSend send = *std::exchange(exchanging_, std::nullopt);
    if (clockPageShown_ && !closing_)
        parts_.timer1.Enable();
    view_.ExchangeEnded(send);
}

} // namespace quorvane
