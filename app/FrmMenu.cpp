#include "app/FrmMenu.h"

#include "app/CommandRules.h"
#include "app/FrmMenuCommand.h"
#include "app/LanguageOffset.h"
#include "app/MainCaptions.h"
#include "app/ModalDialog.h"
#include "app/ProgramFont.h"
#include "app/ProgramIcon.h"
#include "app/QtText.h"
#include "app/ui_FrmMenu.h"
#include "files/FileFaultText.h"
#include "measure/Gaps.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QApplication>
#include <QCloseEvent>
#include <utility>

namespace quorvane {
namespace {

constexpr std::chrono::milliseconds kStatusPace{250};
constexpr int kChartShare = 600; // of the window's width, until the operator divides it otherwise
constexpr int kTableShare = 480;

} // namespace

FrmMenu::FrmMenu(ApplicationState& state, Parts parts)
    : state_(state),
      parts_(std::move(parts)),
      ui_([this] {
          setWindowIcon(ProgramIcon()); // loads the pictures that the form shows
          auto ui = std::make_unique<Ui::FrmMenu>();
          ui->setupUi(this);
          return ui;
      }()),
      table_(new LiveTableModel(parts_.arrays, this)),
      exposure_({{{ui_->Image1, ui_->LampName1, ui_->TwaNow, ui_->Label1, ui_->Text1},
                  {ui_->Image2, ui_->LampName2, ui_->StelNow, ui_->Label2, ui_->Text2},
                  {ui_->Image3, ui_->LampName3, ui_->ConcNow, ui_->Label3, ui_->Text3}}}),
      limits_(state, {ui_->Text1, ui_->Text2, ui_->Text3}, parts_.locale, parts_.run.texts,
              [this](const Message& message) { Ask(message); }),
      readings_({ui_->CountNow, ui_->ConcNow, ui_->TwaNow, ui_->StelNow}),
      status_(*ui_->StatusBar),
      chart_(*this,
             {.chart = ui_->TChart1,
              .spanName = ui_->SpanName,
              .spans = {ui_->Span1, ui_->Span2, ui_->Span3, ui_->Span4},
              .command3 = ui_->Command3,
              .command4 = ui_->Command4,
              .wholeRun = ui_->MenuWholeRun,
              .zoom = ui_->MenuZoom},
             state, parts_.arrays, parts_.run.texts, parts_.locale),
      output_(*ui_->TChart1, state, parts_.arrays, parts_.run.texts, parts_.locale, parts_.run.clock,
              parts_.run.prompts, this),
      keeper_(*this, parts_.timer4, parts_.windowOrder),
      guide_(parts_.run.texts, *this),
      run_(
          state, parts_.arrays, parts_.run, [this] { Save(); }, *this)
{
    ui_->vaSpread1->setModel(table_);
    table_->SetGapText(
        [this](const RunGap& gap) { return Shown(GapText(gap, parts_.run.texts, parts_.locale)); });
    ui_->Command1->setIcon(ui_->MenuMeasureStart->icon());
    ui_->Command2->setIcon(ui_->MenuAlarmReset->icon());
    ui_->Command3->setIcon(ui_->MenuWholeRun->icon());
    ui_->Command4->setIcon(ui_->MenuZoom->icon());
    ui_->Splitter->setStretchFactor(0, 1); // the chart takes the room that a larger window gives
    ui_->Splitter->setSizes({kChartShare, kTableShare});
    ui_->SimulatedNotice->setStyleSheet( // loud, whatever the desktop's colours
        QStringLiteral("QLabel { background: #ffd400; color: black; border: 2px solid black; }"));
    setAcceptDrops(true);
    SetShortcuts();
    Connect();
}

FrmMenu::~FrmMenu()
{
    parts_.statusTimer.Disable(); // it may live longer
}

// ---- the window -----------------------------------------------------------------------------------------

void FrmMenu::Load()
{
    parts_.settings.LoadSettings();
    state_.LanguageOffset =
        LanguageOffsetFor(state_.LanguageMode, state_.SystemLanguageName, state_.LanguageOffset);
    state_.DataPresent = 0;
    state_.DataSaved = 0;
    SetFonts();
    SetCaptions();
    table_->SetDecimalSign(parts_.locale.DecimalSign());
    limits_.Fill();
    ui_->vaSpread1->FitColumns();
    layout_.emplace(parts_.files, state_.AppPath,
                    WindowLayout::Controls{*this, *ui_->Splitter, *ui_->vaSpread1->horizontalHeader()});
    chart_.SelectSpan(layout_->Restore());
    chart_.PrepareRun();
    UpdateCommands();
    UpdateStatus();
    ui_->Command1->setFocus();
    parts_.statusTimer.OnTick([this] { UpdateStatus(); });
    parts_.statusTimer.SetInterval(kStatusPace);
    parts_.statusTimer.Enable();
}

void FrmMenu::Announce(const std::string& text)
{
    status_.Announce(Shown(text));
}

/// The font routine, once the language is settled and whenever the captions are set again. What is read from
/// a distance is large.
void FrmMenu::SetFonts()
{
    SetWindowFont(*this, parts_.run.texts);
    QFont large = Enlarged(font(), 1.25);
    large.setBold(true);
    ui_->Command1->setFont(large);
    ui_->SimulatedNotice->setFont(large);
    readings_.SetFonts(font());
    ui_->vaSpread1->SetFonts(font());
    ui_->TChart1->SetFonts();
    status_.MakeRoom();
}

void FrmMenu::SetShortcuts()
{
    ui_->MenuOpen->setShortcut(QKeySequence::Open);
    ui_->MenuSave->setShortcut(QKeySequence::Save);
    ui_->MenuPrint->setShortcut(QKeySequence::Print);
    ui_->MenuCopyChart->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    ui_->MenuZoom->setShortcut(QKeySequence(Qt::Key_F6));
    ui_->MenuWholeRun->setShortcut(QKeySequence(Qt::Key_F7));
    ui_->MenuExit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    ui_->MenuMeasureStart->setShortcut(QKeySequence(Qt::Key_F5));
    ui_->MenuMeasureEnd->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F5));
    ui_->MenuAlarmReset->setShortcut(QKeySequence(Qt::Key_F8));
    ui_->MenuGuide->setShortcut(QKeySequence::HelpContents);
}

/// The caption routine: at the start, and after the graph settings, which change what the chart says.
void FrmMenu::SetCaptions()
{
    const auto text = [this](int id) { return Shown(parts_.run.texts[id]); };
    SetMainCaptions(*ui_, parts_.run.texts);
    ShowTitle();
    exposure_.SetCaptions(parts_.run.texts);
    chart_.SetCaptions();
    QStringList headings;
    for (const int id : {kTimeColumnText, kCountColumnText, kConcColumnText, kTwaColumnText, kStelColumnText,
                         kIntegratedCountColumnText, kIntegratedConcColumnText})
        headings << UnitBelow(text(id));
    table_->SetHeadings(headings);
    MakeMainRoom(*ui_, parts_.run.texts);
}

/// The window is named after the file that its readings come from.
void FrmMenu::ShowTitle()
{
    const QString program = Shown(parts_.run.texts[kProgramNameText]);
    QString file = openedName_;
    file.replace(u"[*]"_qs, u"[*][*]"_qs); // or the toolkit takes it for its mark of unsaved readings
    setWindowTitle(file.isEmpty() ? program + u"[*]"_qs : file + u"[*] - "_qs + program);
}

void FrmMenu::ShowMode()
{
    ui_->SimulatedNotice->setVisible(ShowsSimulated(state_, parts_.arrays));
}

/// One place for what can be used, after whatever may have changed it.
void FrmMenu::UpdateCommands()
{
    const RunState state = run_.State();
    const EnabledCommands enabled = CommandsIn(state, state_.DataPresent);
    if (state == RunState::Preparing)
        button1HadFocus_ = ui_->Command1->hasFocus();
    ui_->Command1->setEnabled(enabled.command1);
    ui_->Command1->setText(Shown(parts_.run.texts[run_.Command1CaptionId()]));
    ui_->Command1->setIcon(enabled.measureEnd ? ui_->MenuMeasureEnd->icon() : ui_->MenuMeasureStart->icon());
    ui_->MenuMeasureStart->setEnabled(enabled.measureStart);
    ui_->MenuMeasureEnd->setEnabled(enabled.measureEnd);
    for (QAction* action : {ui_->MenuOpen, ui_->ToolOpen})
        action->setEnabled(enabled.open);
    for (QAction* action : {ui_->MenuSave, ui_->ToolSave})
        action->setEnabled(enabled.save);
    for (QAction* action :
         {ui_->MenuPrint, ui_->ToolPrint, ui_->MenuPreview, ui_->MenuSaveImage, ui_->MenuCopyChart})
        action->setEnabled(enabled.picture);
    for (QAction* action : {ui_->MenuQuorvaneSetting, ui_->MenuMeasureSetting, ui_->MenuGraphSetting,
                            ui_->MenuRS232C, ui_->MenuOption})
        action->setEnabled(enabled.settings);
    chart_.SetEnabled(enabled.command3, enabled.command4);
    limits_.SetEnabled(enabled.limitInputs);
    if (enabled.command1 && std::exchange(button1HadFocus_, false))
        ui_->Command1->setFocus(); // it was disabled for a moment, and the focus went on
    setWindowModified(state_.DataPresent == 1 && state_.DataSaved == 0);
}

void FrmMenu::UpdateStatus()
{
    const bool portThere = parts_.port.Update(state_);
    if (parts_.port.TakeChange() && portSetting_)
        portSetting_->DevicesChanged();
    ShowMode();
    const RunStatus status = run_.Status();
    RunStatusText text = StatusText(state_, run_.State(), status, parts_.run.texts, portThere);
    if (!ofThisRun_)
        text.sample = FilledIn(parts_.run.texts[kReadingsText], std::to_string(state_.SampleCount));
    if (closeWanted_)
        text.state = parts_.run.texts[kClosingText];
    status_.Show(text, status.portLost && !closeWanted_);
    ShowJournalHealth();
    readings_.SetStale(text.stale);
}

/// No box: it would stand before the window, and "Measure End" could not be pressed until it is answered. It
/// stays behind the run as long as the readings are nowhere else.
void FrmMenu::ShowJournalHealth()
{
    const bool needed = run_.State() != RunState::Idle || (state_.DataPresent == 1 && state_.DataSaved == 0);
    if (run_.State() == RunState::Idle)
        parts_.journal.Look(); // the run offers it what is left to write, and has ended
    const JournalHealth health = needed ? parts_.journal.Health() : JournalHealth{};
    if (health.Good()) {
        status_.Warn({}, {});
        return;
    }
    const bool full = health.fault && health.fault->kind == FileFaultKind::NoSpace;
    const int id = full ? kDiskFullWarningText : health.fault ? kJournalWarningText : kDiskSlowWarningText;
    const std::string reason = health.fault ? FaultReason(*health.fault, parts_.run.texts) : std::string();
    status_.Warn(Shown(parts_.run.texts[id]), Shown(reason));
}

// ---- what an earlier program has left -------------------------------------------------------------------

/// The first event that is served once the window is shown: no command of the operator can come before it,
/// and none comes behind it.
void FrmMenu::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!std::exchange(offered_, true))
        QMetaObject::invokeMethod(
            this, [this] { OfferLeftOverRuns(); }, Qt::QueuedConnection);
}

/// One run is brought back at most, for there is room for one: the others wait for the next start.
void FrmMenu::OfferLeftOverRuns()
{
    if (Busy()) // and not later: there may be other readings at hand then
        return;
    const Command command(*this);
    while (const std::optional<LeftOverRun> run = parts_.recovery.Next()) {
        const FrmRecovery::Choice choice = AskAbout(*run);
        if (choice == FrmRecovery::Choice::Discard) {
            parts_.recovery.Discard();
            continue;
        }
        if (choice == FrmRecovery::Choice::Later) {
            parts_.recovery.Leave();
            break;
        }
        parts_.recovery.Restore();
        ShowReadings({});
        UpdateCommands();
        if (choice == FrmRecovery::Choice::SaveAs)
            Save();
        break;
    }
    TellUnreadableJournals();
}

void FrmMenu::TellUnreadableJournals()
{
    std::string text;
    for (const auto& [path, state] : parts_.recovery.Unreadable()) {
        text += text.empty() ? "" : "\r\n";
        text += FilledIn(parts_.run.texts[state == JournalState::Newer ? kNewerJournalText : kNoJournalText],
                         path);
    }
    if (!text.empty() && isVisible())
        Ask({.text = text, .icon = Icon::Exclamation});
}

FrmRecovery::Choice FrmMenu::AskAbout(const LeftOverRun& run)
{
    offer_ = new FrmRecovery(run, parts_.run.texts, parts_.locale, this);
    keeper_.Watch(*offer_);
    if (!RunModally(offer_.data()))
        return FrmRecovery::Choice::Later;
    const FrmRecovery::Choice choice = offer_->Chosen();
    delete offer_;
    return choice;
}

// ---- what the run tells ---------------------------------------------------------------------------------

void FrmMenu::StateChanged(RunState state)
{
    if (state == RunState::Starting && closeWanted_)
        run_.Stop(); // the close came while the start asked something
    UpdateCommands();
    UpdateStatus();
}

void FrmMenu::RunPrepared()
{
    table_->Reset(0);
    table_->SetDecimalSign(parts_.locale.DecimalSign());
    ShowReading(0);
    chart_.PrepareRun();
}

void FrmMenu::ReadingsCleared()
{
    table_->Reset(0);
    openedName_.clear();
    ofThisRun_ = true;
    ShowTitle();
}

void FrmMenu::SampleAdded(int sample)
{
    chart_.AddReading();
    table_->Add(sample);
    ui_->vaSpread1->ShowNewest();
    ShowReading(sample);
    QMetaObject::invokeMethod(
        this, [this] { UpdateStatus(); }, Qt::QueuedConnection); // it counts from then on
}

void FrmMenu::ShowReading(int sample)
{
    readings_.Show(parts_.arrays, sample, parts_.locale.DecimalSign());
}

void FrmMenu::LampChanged(Lamp lamp, bool lit)
{
    exposure_.SetLit(lamp, lit);
    if (lit)
        QApplication::alert(this);
}

void FrmMenu::RunEnded(RunResult result)
{
    if (RunTookPlace(result))
        return;
    table_->Reset(state_.SampleCount); // a run that could not start takes nothing away
    ui_->vaSpread1->ShowNewest();
    ShowReading(ofThisRun_ ? state_.SampleCount : 0);
    chart_.Rebuild();
}

} // namespace quorvane
