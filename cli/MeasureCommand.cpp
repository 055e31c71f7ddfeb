#include "cli/MeasureCommand.h"

#include "app/ProgramVersion.h"
#include "cli/CommandWorld.h"
#include "cli/ConsolePrompts.h"
#include "cli/ExitStatus.h"
#include "cli/RunReport.h"
#include "files/AppFiles.h"
#include "files/NumberText.h"
#include "files/SaveCommand.h"
#include "files/SettingsFile.h"
#include "measure/MeasurementRun.h"
#include "platform/InterruptWatch.h"
#include "platform/LoopEventPump.h"
#include "resources/OwnTexts.h"

#include <filesystem>
#include <random>
#include <string>
#include <system_error>
#include <utility>

namespace quorvane {

using namespace std::chrono_literals;

namespace {

/// The device that --port names directly; COM names go to the system's own table.
class ChosenPort : public PortNames {
public:
    ChosenPort(const PortNames& system, std::string port) : system_(system), port_(std::move(port)) {}
    [[nodiscard]] std::optional<PortDevice> Device(int commPort) const override
    {
        return IsComName(port_) ? system_.Device(commPort) : PortDevice{port_};
    }

private:
    const PortNames& system_;
    std::string port_;
};

/// 53 random bits make every double of an even grid in [0, 1) equally likely, on every system the same.
RandomSource MakeRandomSource(const std::optional<std::uint64_t>& seed)
{
    std::mt19937_64 generator(seed ? *seed : std::random_device{}());
    return [generator]() mutable { return static_cast<double>(generator() >> 11U) * 0x1p-53; };
}

/// "1:02:03" or "02:03".
std::string DurationText(std::chrono::seconds time)
{
    const std::chrono::hh_mm_ss parts(time);
    const auto two = [](std::int64_t n) { return PatternText(static_cast<double>(n), {.integerDigits = 2}); };
    const std::string hours = parts.hours().count() > 0 ? std::to_string(parts.hours().count()) + ":" : "";
    return hours + two(parts.minutes().count()) + ":" + two(parts.seconds().count());
}

/// One measurement on the command line: makes the parts of a run from the system's, and runs it.
class Measurement {
public:
    explicit Measurement(const MeasureOptions& options);
    int Run();

private:
    [[nodiscard]] bool OutputFolderExists();
    void PassInterruptsOn();
    void Watch();
    void TellPortLoss();
    void GiveUpWhenSilent();
    void ShowProgress();
    [[nodiscard]] bool Save();

    const MeasureOptions& options_;
    CommandWorld world_;
    Platform& system_ = world_.platform;
    ApplicationState& state_ = world_.state;
    MeasurementArrays arrays_;
    SettingsFile settings_;
    ConsolePrompts prompts_;
    ChosenPort port_;
    LoopEventPump pump_;
    LoopTimer timer1_;
    LoopTimer timer2_;
    LoopTimer timer3_;
    LoopTimer watchTimer_;
    SerialLog log_;
    PortLink link_;
    RunReport report_;
    SaveCommand save_;
    MeasurementRun run_;
    InterruptWatch interrupts_;
    int interruptsSeen_ = 0;
    bool gaveUp_ = false;
    bool portLossTold_ = false;
};

Measurement::Measurement(const MeasureOptions& options)
    : options_(options),
      world_(true),
      settings_(state_, *system_.files, *system_.codePage, *system_.clock, *system_.locale, kProgramVersion),
      prompts_(world_.console, options.output),
      port_(*system_.portNames, options.port),
      timer1_(pump_),
      timer2_(pump_, options.speed),
      timer3_(pump_, options.speed),
      watchTimer_(pump_),
      log_(state_, *system_.files, *system_.codePage, *system_.clock, *system_.locale),
      link_(state_, {*system_.serial, port_, pump_, timer1_, prompts_, log_, world_.texts}),
      report_(world_.console, arrays_, state_, world_.texts, system_.locale->DecimalSign(), !options.quiet),
      save_(state_, arrays_,
            {*system_.files, *system_.codePage, *system_.locale, *system_.clock, prompts_, world_.texts,
             kProgramVersion}),
      run_(state_, arrays_,
           {link_, *system_.serial, pump_, timer1_, timer2_, timer3_, *system_.clock, prompts_, log_,
            world_.texts, MakeRandomSource(options.randomSeed), [this] { save_.SaveMeasurement(); }, report_})
{
    watchTimer_.OnTick([this] { Watch(); });
    pump_.OnIdle([this] { PassInterruptsOn(); });
}

int Measurement::Run()
{
    settings_.LoadSettings();
    ApplyOptions(options_, state_);
    if (!OutputFolderExists())
        return kExitFailed;

    watchTimer_.SetInterval(100ms);
    watchTimer_.Enable();
    const RunResult result = run_.Start();
    watchTimer_.Disable();
    world_.console.SetProgress({});

    if (result == RunResult::PortNotOpened && link_.LastFault())
        world_.console.Say(world_.Reason(*link_.LastFault()));
    if (!RunTookPlace(result))
        return kExitFailed;
    const bool saved = Save();
    return saved && result != RunResult::ReadFailed && !gaveUp_ ? kExitDone : kExitFailed;
}

/// A run of hours must not end with a place to save that was never there.
bool Measurement::OutputFolderExists()
{
    const std::filesystem::path folder = PathFromUtf8(options_.output).parent_path();
    std::error_code error;
    if (folder.empty() || std::filesystem::is_directory(folder, error))
        return true;
    world_.console.Say(world_.texts[235]);
    world_.console.Say(world_.texts[kFileNotFoundText] + " (" + options_.output + ")");
    return false;
}

/// Each Ctrl-C is a press of the stop button.
void Measurement::PassInterruptsOn()
{
    for (; interruptsSeen_ < interrupts_.Count(); ++interruptsSeen_)
        run_.Stop();
}

void Measurement::Watch()
{
    if (run_.State() != RunState::Measuring)
        return;
    TellPortLoss();
    GiveUpWhenSilent();
    ShowProgress();
}

void Measurement::TellPortLoss()
{
    if (run_.Lines().PortLost() && !portLossTold_)
        world_.console.Say(world_.texts[kPortLostText]);
    portLossTold_ = run_.Lines().PortLost();
}

void Measurement::GiveUpWhenSilent()
{
    const auto since = run_.Lines().SilentSince();
    if (!options_.giveUp || !since || system_.clock->SteadyNow() - *since < *options_.giveUp)
        return;
    gaveUp_ = true;
    const double seconds = static_cast<double>(options_.giveUp->count()) / 1000;
    world_.console.Say(FilledIn(world_.texts[kGivenUpText], GeneralText(seconds)));
    run_.Stop();
}

void Measurement::ShowProgress()
{
    const auto planned = static_cast<std::int32_t>(state_.TotalSamples);
    const std::int32_t left = planned - run_.TakenSamples();
    const double seconds = static_cast<double>(left) * state_.SamplingSeconds / options_.speed;
    std::string line = std::to_string(run_.TakenSamples()) + "/" + std::to_string(planned) + "  -" +
                       DurationText(std::chrono::seconds(static_cast<std::int64_t>(seconds)));
    if (const int behind = run_.LinesBehind(); behind > 1)
        line += "  +" + std::to_string(behind);
    world_.console.SetProgress(std::move(line));
}

/// Saves where it was asked for, or, so that nothing measured is lost, beside the program's own files or
/// among the temporary ones. @return whether the readings are where they were asked for
bool Measurement::Save()
{
    if (save_.SaveMeasurement() == SaveResult::Saved) {
        world_.console.Say(world_.texts[kSavedText] + ": " + options_.output + " (" +
                           std::to_string(state_.SampleCount) + ")");
        return true;
    }
    std::error_code error;
    const std::string temporary = Utf8FromPath(std::filesystem::temp_directory_path(error));
    const auto stamp = system_.clock->Now().time_since_epoch().count();
    const std::string name = "Quorvane-" + std::to_string(stamp) + ".csv";
    for (const std::string& folder : {state_.AppPath, temporary}) {
        const std::string path = FileInFolder(folder, name);
        if (save_.SaveTo(path))
            continue;
        world_.console.Say(FilledIn(world_.texts[kRescuedText], path));
        break;
    }
    return false;
}

} // namespace

int RunMeasureCommand(const MeasureOptions& options)
{
    return Measurement(options).Run();
}

} // namespace quorvane
