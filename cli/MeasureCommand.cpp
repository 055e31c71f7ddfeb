#include "cli/MeasureCommand.h"

#include "app/ExitStatus.h"
#include "app/ProgramVersion.h"
#include "cli/CommandWorld.h"
#include "cli/InstrumentLine.h"
#include "cli/RunReport.h"
#include "files/AppFiles.h"
#include "files/FileFaultText.h"
#include "files/NumberText.h"
#include "files/RunAdvice.h"
#include "files/SaveCommand.h"
#include "instrument/DateTimeText.h"
#include "measure/Gaps.h"
#include "measure/JournalRecovery.h"
#include "measure/MeasurementRun.h"
#include "measure/RunJournal.h"
#include "measure/RunStatusText.h"
#include "measure/SimulatedReading.h"
#include "platform/Platform.h"
#include "resources/OwnTexts.h"

#include <algorithm>
#include <string>
#include <utility>

namespace quorvane {

using namespace std::chrono_literals;

namespace {

/// One measurement on the command line: makes the parts of a run from the system's, and runs it.
class Measurement {
public:
    explicit Measurement(const MeasureOptions& options);
    int Run();

private:
    [[nodiscard]] int MeasureAndSave();
    [[nodiscard]] std::string Advice() const;
    void Watch();
    void TellPortLoss(const RunStatus& status);
    void TellGaps();
    void TellJournalHealth();
    void TellLeftOverRun();
    void ShowProgress(const RunStatus& status);
    void GiveUpWhenSilent(const RunStatus& status);
    [[nodiscard]] bool Save();

    const MeasureOptions& options_;
    CommandWorld world_;
    Platform& system_ = world_.platform;
    ApplicationState& state_ = world_.state;
    MeasurementArrays arrays_;
    InstrumentLine line_;
    LoopTimer timer2_;
    LoopTimer timer3_;
    LoopTimer watchTimer_;
    PortReturn portReturn_;
    RunReport report_;
    RunJournal journal_;
    SaveCommand save_;
    MeasurementRun run_;
    bool gaveUp_ = false;
    bool portLossTold_ = false;
    std::size_t gapsTold_ = 0;
    bool journalTroubleTold_ = false;
};

Measurement::Measurement(const MeasureOptions& options)
    : options_(options),
      world_(true),
      line_(world_, options.port, {.save = options.output, .open = {}}),
      timer2_(line_.Pump(), options.speed),
      timer3_(line_.Pump(), options.speed),
      watchTimer_(line_.Pump()),
      portReturn_({*system_.serial, *system_.portNames, *system_.portDescriptions}),
      report_(world_.console, arrays_, state_, world_.texts, system_.locale->DecimalSign(), !options.quiet),
      journal_(state_, state_, arrays_, *system_.journals),
      save_(state_, arrays_,
            {*system_.files, *system_.codePage, *system_.locale, *system_.clock, line_.Messages(),
             world_.texts, kProgramVersion, [this] { journal_.Settle(); }}),
      run_(
          state_, arrays_,
          {.link = line_.Link(),
           .control = *system_.serial,
           .pump = line_.Pump(),
           .timer1 = line_.Timer1(),
           .timer2 = timer2_,
           .timer3 = timer3_,
           .clock = *system_.clock,
           .prompts = line_.Messages(),
           .log = line_.Log(),
           .texts = world_.texts,
           .random = MakeRandomSource(options.randomSeed),
           .journal = &journal_,
           .keepAwake = system_.keepAwake.get(),
           .advice = [this] { return Advice(); },
           .portReturn = &portReturn_},
          [this] { save_.SaveMeasurement(); }, report_)
{
    watchTimer_.OnTick([this] { Watch(); });
    line_.OnInterrupt([this] { run_.Stop(); }); // a press of the stop button
}

int Measurement::Run()
{
    const int status = MeasureAndSave();
    line_.WaitForReader();
    return status;
}

int Measurement::MeasureAndSave()
{
    ApplyOptions(options_, state_);
    if (const auto fault = system_.files->CheckReplace(options_.output)) {
        save_.TellFailure(*fault); // not after a run of hours
        return kExitFailed;
    }
    TellLeftOverRun();

    watchTimer_.SetInterval(100ms);
    watchTimer_.Enable();
    const RunResult result = run_.Start();
    watchTimer_.Disable();
    world_.console.SetProgress({});

    if (!RunTookPlace(result))
        return kExitFailed;
    const bool saved = Save();
    return saved && result != RunResult::ReadFailed ? kExitDone : kExitFailed;
}

std::string Measurement::Advice() const
{
    const std::string folder = Utf8FromPath(PathFromUtf8(options_.output).parent_path());
    return RunAdvice({.programFolder = state_.AppPath, .dataFolder = folder.empty() ? "." : folder},
                     state_.TotalSamples, *system_.folders, world_.texts);
}

void Measurement::Watch()
{
    const RunState state = run_.State();
    if (state != RunState::Measuring && state != RunState::Stopping)
        return;
    TellJournalHealth();
    const RunStatus status = run_.Status();
    ShowProgress(status);
    if (state == RunState::Stopping)
        return;
    TellPortLoss(status);
    TellGaps();
    GiveUpWhenSilent(status);
}

void Measurement::TellPortLoss(const RunStatus& status)
{
    if (status.portLost && !portLossTold_)
        world_.console.Say(PortLossText(status, state_.RsPort, world_.texts));
    if (!status.portLost && portLossTold_)
        world_.console.Say(FilledIn(world_.texts[kPortBackText], InstrumentTimeText(system_.clock->Now())));
    portLossTold_ = status.portLost;
}

/// What the clocks have told; a lost port was told when it went.
void Measurement::TellGaps()
{
    for (; gapsTold_ < arrays_.Gaps.size(); ++gapsTold_) {
        const RunGap& gap = arrays_.Gaps[gapsTold_];
        if (gap.kind == GapKind::PortLost)
            continue;
        std::string text = GapText(gap, world_.texts, *system_.locale);
        std::ranges::replace(text, '\n', ' ');
        world_.console.Say(text);
    }
}

/// Once, and once when it is over.
void Measurement::TellJournalHealth()
{
    const JournalHealth health = journal_.Health();
    if (health.Good() == !journalTroubleTold_)
        return;
    journalTroubleTold_ = !health.Good();
    if (health.Good())
        world_.console.Say(world_.texts[kJournalGoodText]);
    else if (health.fault)
        world_.console.Say(
            FilledIn(world_.texts[kJournalFaultText], FaultReason(*health.fault, world_.texts)));
    else
        world_.console.Say(world_.texts[kJournalBehindText]);
}

void Measurement::TellLeftOverRun()
{
    JournalRecovery recovery(state_, arrays_, *system_.journals, journal_);
    if (const auto run = recovery.Next())
        world_.console.Say(FilledIn(world_.texts[kLeftOverRunText], run->path));
    recovery.Leave();
    for (const auto& [path, state] : recovery.Unreadable())
        world_.console.Say(
            FilledIn(world_.texts[state == JournalState::Newer ? kNewerJournalText : kNoJournalText], path));
}

void Measurement::GiveUpWhenSilent(const RunStatus& status)
{
    const auto since = status.silentSince;
    if (gaveUp_ || !options_.giveUp || !since || system_.clock->SteadyNow() - *since < *options_.giveUp)
        return;
    gaveUp_ = true;
    const double seconds = static_cast<double>(options_.giveUp->count()) / 1000;
    world_.console.Say(
        FilledIn(world_.texts[kGivenUpText], GeneralText(seconds, system_.locale->DecimalSign())));
    run_.Stop();
}

void Measurement::ShowProgress(const RunStatus& status)
{
    const double secondsLeft = static_cast<double>(status.left.count()) / options_.speed;
    std::string line = std::to_string(status.taken) + "/" + std::to_string(status.planned) + "  -" +
                       DurationText(std::chrono::seconds(static_cast<std::int64_t>(secondsLeft)));
    if (status.linesBehind > 1)
        line += "  +" + std::to_string(status.linesBehind);
    world_.console.SetProgress(std::move(line));
}

/// @return whether the readings are where they were asked for
bool Measurement::Save()
{
    if (state_.SampleCount == 0 && system_.files->Exists(options_.output)) {
        world_.console.Say(FilledIn(world_.texts[kNothingTakenText], options_.output));
        journal_.Settle();
        return false; // an earlier measurement is worth more than no reading
    }
    if (save_.SaveMeasurement() == SaveResult::Saved) {
        world_.console.Say(world_.texts[kSavedText] + ": " + options_.output + " (" +
                           std::to_string(state_.SampleCount) + ")");
        return true;
    }
    const std::string folders[] = {state_.AppPath, TemporaryFolder()};
    const auto rescued = save_.Rescue(folders);
    world_.console.Say(rescued ? FilledIn(world_.texts[kRescuedText], *rescued)
                               : world_.texts[kNotRescuedText]);
    return false;
}

} // namespace

int RunMeasureCommand(const MeasureOptions& options)
{
    return Measurement(options).Run();
}

} // namespace quorvane
