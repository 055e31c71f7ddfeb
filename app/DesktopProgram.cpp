#include "app/DesktopProgram.h"

#include "app/ExitStatus.h"
#include "app/LanguageOffset.h"
#include "app/ModalDialog.h"
#include "app/ProgramVersion.h"
#ifdef QUORVANE_DBUS
#include "app/QtKeepAwake.h"
#endif
#include "app/QtText.h"
#include "app/Startup.h"
#include "app/ToolkitLanguage.h"
#include "files/RunAdvice.h"
#include "measure/SimulatedReading.h"
#include "options/FrmLanguageSelect.h"
#include "platform/InterruptWatch.h"

#include <QApplication>
#include <QSessionManager>
#include <utility>

namespace quorvane {

namespace {

constexpr std::chrono::milliseconds kInterruptPace{200};
constexpr std::chrono::milliseconds kProcessorPace{200};

/// @return null where the toolkit cannot ask either
std::unique_ptr<KeepAwake> ToolkitKeepAwake()
{
#ifdef QUORVANE_DBUS
    return std::make_unique<QtKeepAwake>();
#else
    return nullptr;
#endif
}

} // namespace

DesktopProgram::DesktopProgram(Platform platform)
    : platform_(std::move(platform)),
      table_(TableLanguageFor(platform_.locale->SystemLanguageName())),
      texts_(table_, state_),
      prompts_(texts_),
      log_(state_, *platform_.files, *platform_.codePage, *platform_.clock, *platform_.locale),
      link_(state_, {*platform_.serial, *platform_.portNames, pump_, timer1_, prompts_, log_, texts_}),
      portReturn_({*platform_.serial, *platform_.portNames, *platform_.portDescriptions}),
      settings_(state_, *platform_.files, *platform_.codePage, *platform_.clock, *platform_.locale,
                kProgramVersion),
      journal_(state_, state_, arrays_, *platform_.journals),
      recovery_(state_, arrays_, *platform_.journals, journal_),
      save_(state_, arrays_,
            {*platform_.files, *platform_.codePage, *platform_.locale, *platform_.clock, prompts_, texts_,
             kProgramVersion, [this] { journal_.Settle(); }}),
      open_(state_, arrays_,
            {*platform_.files, *platform_.codePage, *platform_.locale, *platform_.clock, prompts_, texts_}),
      programFile_(state_, {*platform_.files, *platform_.profile, prompts_, texts_, kProgramVersion}),
      port_(*platform_.devices, *platform_.portNames),
      keepAwake_(platform_.keepAwake ? std::move(platform_.keepAwake) : ToolkitKeepAwake())
{
    QApplication::setQuitOnLastWindowClosed(
        false); // the main window decides; a box at start-up is not the last
    UseProgramLanguage();
}

bool DesktopProgram::Start(bool selectLanguage)
{
    const auto findFiles = [this] {
        files_ = FindProgramFiles({EnvironmentText("QUORVANE_HOME"), ProgramFolder(), UserDataFolder()},
                                  *platform_.folders, *platform_.files);
        return files_;
    };
    const std::function<void()> choose = [this] { SelectLanguage(); };
    const StartupResult result = Main(state_, {.instanceLock = *platform_.instanceLock,
                                               .systemInfo = *platform_.systemInfo,
                                               .locale = *platform_.locale,
                                               .clock = *platform_.clock,
                                               .files = *platform_.files,
                                               .prompts = prompts_,
                                               .texts = texts_,
                                               .findFiles = findFiles,
                                               .selectLanguage = selectLanguage ? choose : nullptr,
                                               .showMainWindow = [this] { ShowMainWindow(); }});
    return result == StartupResult::Running;
}

/// Ctrl-C in the terminal and the system's request to end are a click on the close button: a run is stopped,
/// and unsaved readings are asked about.
int DesktopProgram::Run()
{
    const InterruptWatch
        interrupts; // before this a request to end ends the program, which has nothing to lose
    int seen = 0;
    interruptTimer_.OnTick([&] {
        if (interrupts.Count() == seen)
            return;
        window_->close();
        seen = interrupts.Count(); // those that came behind the question are answered with it
    });
    interruptTimer_.SetInterval(kInterruptPace);
    interruptTimer_.Enable();
    AnswerTheSystemsEnd();
    return QApplication::exec();
}

/// The system asks once, before anything is closed, and ends the program a moment later unless it says no.
void DesktopProgram::AnswerTheSystemsEnd()
{
    const auto answer = [this](QSessionManager& session) {
        if (window_->RefusesEndOfSystem())
            session.cancel();
    };
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, window_.get(), answer, Qt::DirectConnection);
}

void DesktopProgram::SelectLanguage()
{
    const QPointer<QDialog> dialog = new FrmLanguageSelect(
        state_, {.files = *platform_.files, .texts = texts_, .tell = [this](const Message& message) {
                     prompts_.Show(message);
                 }});
    if (RunModally(dialog))
        delete dialog;
}

void DesktopProgram::ShowMainWindow()
{
    window_ = std::make_unique<FrmMenu>(
        state_, FrmMenu::Parts{.run = {.link = link_,
                                       .control = *platform_.serial,
                                       .pump = pump_,
                                       .timer1 = timer1_,
                                       .timer2 = timer2_,
                                       .timer3 = timer3_,
                                       .clock = *platform_.clock,
                                       .prompts = prompts_,
                                       .log = log_,
                                       .texts = texts_,
                                       .random = MakeRandomSource(),
                                       .journal = &journal_,
                                       .keepAwake = keepAwake_.get(),
                                       .advice = [this] { return Advice(); },
                                       .portReturn = &portReturn_},
                               .timer4 = timer4_,
                               .windowOrder = platform_.windowOrder ? *platform_.windowOrder : windowOrder_,
                               .statusTimer = statusTimer_,
                               .port = port_,
                               .portNames = *platform_.portNames,
                               .portProbe = *platform_.portProbe,
                               .portDescriptions = *platform_.portDescriptions,
                               .drives = drives_,
                               .locale = *platform_.locale,
                               .saveCommand = save_,
                               .openCommand = open_,
                               .programFile = programFile_,
                               .clockTimer = clockTimer_,
                               .files = *platform_.files,
                               .settings = settings_,
                               .arrays = arrays_,
                               .journal = journal_,
                               .recovery = recovery_,
                               .closed = [this] { End(); }});
    prompts_.SetParent(window_.get());
    window_->Load();
    UseProgramLanguage(); // the language choice is known by now
    if (const std::string notice = PlaceNotice(files_, texts_); !notice.empty()) {
        window_->Announce(notice);
        qInfo("%s", notice.c_str());
    }
    window_->show();
    AwaitProcessors();
}

std::string DesktopProgram::Advice() const
{
    const bool chosen = state_.DefaultFolder != kUnchosenFolder; // nobody may write there, and nobody minds
    return RunAdvice({.programFolder = state_.AppPath, .dataFolder = chosen ? state_.DefaultFolder : ""},
                     state_.TotalSamples, *platform_.folders, texts_);
}

/// The system may take seconds to answer, or for ever: nobody waits.
void DesktopProgram::AwaitProcessors()
{
    if (!state_.CpuAwaited)
        return;
    processorTimer_.OnTick([this] {
        if (!RecordProcessors(state_, *platform_.systemInfo))
            return;
        processorTimer_.Disable();
        window_->ShowMachineFacts();
    });
    processorTimer_.SetInterval(kProcessorPace);
    processorTimer_.Enable();
}

/// Whatever still waits ends, and so do all windows with the program.
void DesktopProgram::End()
{
    pump_.Close();
    QApplication::exit(kExitDone);
}

void DesktopProgram::UseProgramLanguage()
{
    UseToolkitLanguage(*qApp, texts_.Language());
}

} // namespace quorvane
