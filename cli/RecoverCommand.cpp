#include "cli/RecoverCommand.h"

#include "app/ExitStatus.h"
#include "app/ProgramVersion.h"
#include "cli/CommandWorld.h"
#include "cli/ConsolePrompts.h"
#include "files/AppFiles.h"
#include "files/FileFaultText.h"
#include "files/SaveCommand.h"
#include "instrument/DateTimeText.h"
#include "measure/JournalRecovery.h"
#include "measure/RunJournal.h"
#include "resources/OwnTexts.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace quorvane {
namespace {

bool AreOneFile(const std::string& a, const std::string& b)
{
    std::error_code error; // of a file that is not there
    return std::filesystem::equivalent(PathFromUtf8(a), PathFromUtf8(b), error);
}

/// What is left of runs, on the command line.
class Recovery {
public:
    explicit Recovery(const RecoverOptions& options) : options_(options)
    {
        if (options.previous)
            paths_ = {KeptJournal(world_.state)};
        else if (!options.journal.empty())
            paths_ = {options.journal};
        else
            paths_ = leftOver_;
    }
    int Run();

private:
    [[nodiscard]] int Save();
    [[nodiscard]] int Discard();
    [[nodiscard]] int List();
    [[nodiscard]] std::optional<LeftOverRun> FirstRun();
    [[nodiscard]] std::optional<LeftOverRun> LookAt(const std::string& path);
    [[nodiscard]] bool IsLeftOver(const std::string& path) const;
    [[nodiscard]] std::string Facts(const LeftOverRun& run) const;

    const RecoverOptions& options_;
    CommandWorld world_{false};
    Platform& system_ = world_.platform;
    MeasurementArrays arrays_;
    RunJournal journal_{world_.state, world_.state, arrays_, *system_.journals};
    JournalRecovery recovery_{world_.state, arrays_, *system_.journals, journal_};
    ConsolePrompts prompts_{world_.console, {}};
    SaveCommand save_{world_.state,
                      arrays_,
                      {*system_.files, *system_.codePage, *system_.locale, *system_.clock, prompts_,
                       world_.texts, kProgramVersion}};
    std::vector<std::string> leftOver_ = system_.journals->LeftOver(world_.state.AppPath);
    std::vector<std::string> paths_; ///< to look at
};

int Recovery::Run()
{
    int status = kExitFailed;
    switch (options_.action) {
    case RecoverAction::Save:
        status = Save();
        break;
    case RecoverAction::Discard:
        status = Discard();
        break;
    case RecoverAction::List:
        status = List();
        break;
    }
    world_.console.FlushAll();
    return status;
}

int Recovery::Save()
{
    if (const auto fault = system_.files->CheckReplace(options_.output)) {
        save_.TellFailure(*fault);
        return kExitFailed;
    }
    const auto run = FirstRun();
    if (!run)
        return kExitFailed;
    recovery_.Restore();
    // Over the journal itself nothing may be saved: it is what the readings come from.
    const auto fault = AreOneFile(options_.output, run->path) ? FileFault{FileFaultKind::InUse, {}}
                                                              : save_.SaveTo(options_.output);
    if (fault) {
        save_.TellFailure(*fault);
        return kExitFailed;
    }
    world_.console.Say(world_.texts[kSavedText] + ": " + options_.output + " (" + Facts(*run) + ")");
    if (IsLeftOver(run->path)) // one that was brought from elsewhere stays
        journal_.Settle();
    if (const auto others = system_.journals->LeftOver(world_.state.AppPath); !others.empty())
        world_.console.Say(FilledIn(world_.texts[kLeftOverRunText], others.front()));
    return kExitDone;
}

int Recovery::Discard()
{
    const auto run = FirstRun();
    if (!run)
        return kExitFailed;
    if (!IsLeftOver(run->path)) {
        world_.console.Say(world_.texts[kNothingLeftText]);
        return kExitFailed;
    }
    recovery_.Discard();
    std::string ignored;
    if (!system_.journals->Claim(run->path, ignored)) { // which waits until it should have gone
        world_.console.Say(FaultReason({FileFaultKind::NoPermission, {}}, world_.texts) + " " + run->path);
        return kExitFailed;
    }
    world_.console.Say(FilledIn(world_.texts[kRunGivenUpText], run->path) + " (" + Facts(*run) + ")");
    return kExitDone;
}

int Recovery::List()
{
    bool any = false;
    for (const std::string& path : paths_) {
        if (const auto run = LookAt(path)) {
            world_.console.Print(path + "  " + Facts(*run));
            any = true;
        }
    }
    if (!any)
        world_.console.Say(world_.texts[kNothingLeftText]);
    return any ? kExitDone : kExitFailed;
}

/// The newest that can be recovered; those passed over are told.
std::optional<LeftOverRun> Recovery::FirstRun()
{
    for (const std::string& path : paths_) {
        if (auto run = LookAt(path))
            return run;
    }
    world_.console.Say(world_.texts[kNothingLeftText]);
    return std::nullopt;
}

std::optional<LeftOverRun> Recovery::LookAt(const std::string& path)
{
    JournalLook look = recovery_.LookAt(path);
    const Texts& texts = world_.texts;
    if (look.fault)
        world_.console.Say(path + ": " + FaultReason(*look.fault, texts));
    else if (look.state == JournalState::Foreign)
        world_.console.Say(FilledIn(texts[kNoJournalText], path));
    else if (look.state == JournalState::Newer)
        world_.console.Say(FilledIn(texts[kNewerJournalText], path));
    else if (look.worthless && IsLeftOver(path))
        recovery_.Discard();
    return look.run;
}

bool Recovery::IsLeftOver(const std::string& path) const
{
    return std::ranges::any_of(leftOver_,
                               [&path](const std::string& other) { return AreOneFile(path, other); });
}

std::string Recovery::Facts(const LeftOverRun& run) const
{
    std::string facts = world_.texts[kRunFactsText];
    for (const std::string& fact :
         {std::to_string(run.readings), SystemDateTimeText(run.start, *system_.locale),
          SystemDateTimeText(run.last, *system_.locale), std::to_string(run.damaged),
          std::to_string(run.gaps)})
        facts = FilledIn(std::move(facts), fact);
    if (run.simulated)
        facts += "; " + world_.texts[kSimulatedModeText];
    return facts;
}

} // namespace

int RunRecoverCommand(const RecoverOptions& options)
{
    return Recovery(options).Run();
}

} // namespace quorvane
