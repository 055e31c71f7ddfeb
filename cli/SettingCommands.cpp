#include "cli/SettingCommands.h"

#include "app/ExitStatus.h"
#include "app/ProgramVersion.h"
#include "cli/CommandWorld.h"
#include "cli/InstrumentLine.h"
#include "files/ProgramFileCommand.h"
#include "instrument/InstrumentClock.h"
#include "instrument/KFactor.h"
#include "resources/OwnTexts.h"

#include <string>
#include <utility>

namespace quorvane {
namespace {

/// What the operator knows a field of the measuring program by.
int FieldText(ProgramField field)
{
    switch (field) {
    case ProgramField::StartDate:
        return kStartDateText;
    case ProgramField::StartTime:
        return kStartTimeText;
    case ProgramField::Hours:
    case ProgramField::Minutes:
        return kSamplingTimeText;
    case ProgramField::Count:
        break;
    }
    return kMeasureCountText;
}

int OutcomeText(ExchangeOutcome outcome)
{
    switch (outcome) {
    case ExchangeOutcome::Completed:
        return kCompletedText;
    case ExchangeOutcome::Cancelled:
        return kCancelledText;
    case ExchangeOutcome::Failed:
        break;
    }
    return kLineErrorText;
}

/// One look at the instrument's settings, or one change to them.
class Setting {
public:
    explicit Setting(const SettingOptions& options);
    int Run();

private:
    [[nodiscard]] int Act();
    [[nodiscard]] int Check();
    [[nodiscard]] int Clock();
    [[nodiscard]] int Program();
    [[nodiscard]] int KFactor();
    void TellFault(const ProgramFault& fault);
    [[nodiscard]] bool LoadProgram();
    [[nodiscard]] bool TypedProgram();
    [[nodiscard]] int PrintAndSend(const InstrumentCommand& command);
    [[nodiscard]] bool Send(const InstrumentCommand& command);
    [[nodiscard]] int Fail();
    void Tell(int text) { world_.console.Say(world_.texts[text]); }
    [[nodiscard]] ClockTexts ComputerNow();
    void PrintClock(int dateText, int timeText, const ClockTexts& clock);

    const SettingOptions& options_;
    CommandWorld world_{false};
    Platform& system_ = world_.platform;
    ApplicationState& state_ = world_.state;
    InstrumentLine line_;
    const ProgramSurroundings surroundings_;
    bool interrupted_ = false;
};

Setting::Setting(const SettingOptions& options)
    : options_(options),
      line_(world_, options.port, {.save = {}, .open = options.file}),
      surroundings_{state_, *system_.locale, *system_.clock, world_.texts}
{
    state_.RunMode = true; // an instrument is meant, whatever the window measures from
    ApplyPort(options.port, state_);
    line_.OnInterrupt([this] {
        interrupted_ = true;
        line_.Link().Cancel();
    });
}

int Setting::Run()
{
    const int status = Act();
    line_.Link().ClosePort();
    line_.WaitForReader();
    return status;
}

int Setting::Act()
{
    switch (options_.action) {
    case SettingAction::Check:
        return Check();
    case SettingAction::Clock:
        return Clock();
    case SettingAction::Program:
        return Program();
    case SettingAction::KFactor:
        break;
    }
    return KFactor();
}

int Setting::Check()
{
    if (!line_.Link().OpenPort())
        return kExitFailed;
    if (!line_.Link().CheckInstrument())
        return Fail();
    world_.console.Print(world_.texts[kInstrumentAnswersText]);
    return kExitDone;
}

int Setting::Clock()
{
    if (!line_.Link().OpenPort())
        return kExitFailed;
    if (options_.set && !Send(ClockCommand(ComputerNow())))
        return kExitFailed;
    InstrumentClock instrument(state_, line_.Link(), *system_.serial, line_.Log());
    const std::string record = instrument.ReadInstrumentClock(ComputerNow());
    if (record.empty())
        return Fail();
    PrintClock(kSystemDateText, kSystemTimeText, ComputerNow()); // as late as the instrument's
    PrintClock(kInstrumentDateText, kInstrumentTimeText, CutClockRecord(record));
    return kExitDone;
}

int Setting::Program()
{
    if (options_.file.empty() ? !TypedProgram() : !LoadProgram())
        return kExitFailed;
    if (const auto fault = CheckProgram(surroundings_)) {
        TellFault(*fault);
        return kExitFailed;
    }
    if (const auto fault = CheckStartMoment(surroundings_)) {
        line_.Messages().Show(fault->message);
        return kExitFailed;
    }
    return PrintAndSend(ProgramCommand(surroundings_));
}

/// Nobody sees a field here, so that it is named.
void Setting::TellFault(const ProgramFault& fault)
{
    std::string text = world_.texts[FieldText(fault.field)];
    text.append(text.ends_with(':') ? " " : ": ");
    line_.Messages().Show({.text = text + fault.message.text});
}

bool Setting::TypedProgram()
{
    if (StoreProgram(options_.program, surroundings_))
        return true;
    world_.console.Say(FilledIn(world_.texts[kDateNotSentText], system_.locale->ShortDateFormat()));
    return false;
}

bool Setting::LoadProgram()
{
    return ProgramFileCommand(
               state_, {*system_.files, *system_.profile, line_.Messages(), world_.texts, kProgramVersion})
        .OpenProgram();
}

int Setting::KFactor()
{
    state_.KFactor = options_.kFactor;
    if (!IsValidKFactor(state_.KFactor)) {
        line_.Messages().Show(KFactorRangeMessage(world_.texts));
        return kExitFailed;
    }
    return PrintAndSend(KFactorCommand(state_.KFactor));
}

int Setting::PrintAndSend(const InstrumentCommand& command)
{
    world_.console.Print(command.Text());
    if (!options_.send) {
        Tell(kNothingSentText);
        return kExitDone;
    }
    return line_.Link().OpenPort() && Send(command) ? kExitDone : kExitFailed;
}

/// Over the open port.
bool Setting::Send(const InstrumentCommand& command)
{
    CommandExchange exchange(state_, line_.Link(), *system_.serial, line_.Log());
    const ExchangeOutcome outcome = exchange.Send(command);
    Tell(OutcomeText(outcome));
    return outcome == ExchangeOutcome::Completed;
}

int Setting::Fail()
{
    Tell(OutcomeText(interrupted_ ? ExchangeOutcome::Cancelled : ExchangeOutcome::Failed));
    return kExitFailed;
}

ClockTexts Setting::ComputerNow()
{
    return ComputerClock(state_, *system_.locale, world_.texts, system_.clock->Now());
}

void Setting::PrintClock(int dateText, int timeText, const ClockTexts& clock)
{
    world_.console.Print(world_.texts[dateText] + ": " + Printable(clock.date) + "  " +
                         world_.texts[timeText] + ": " + Printable(clock.time));
}

} // namespace

int RunSettingCommand(const SettingOptions& options)
{
    return Setting(options).Run();
}

} // namespace quorvane
