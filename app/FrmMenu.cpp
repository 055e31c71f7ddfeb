#include "app/FrmMenu.h"

#include "app/CommandRules.h"
#include "app/LanguageOffset.h"
#include "app/QtText.h"
#include "app/ui_FrmMenu.h"
#include "resources/OwnTexts.h"

#include <QApplication>
#include <QCloseEvent>
#include <utility>

// The pictures lie in a static library and have to be asked for; the macro works outside a namespace only.
static void LoadPictures()
{
    Q_INIT_RESOURCE(pictures);
}

namespace quorvane {
namespace {

constexpr int kTitleText = 101;
constexpr int kStartCaption = 223;
constexpr int kEndCaption = 225;
constexpr int kUnsavedText = 228;
constexpr std::chrono::milliseconds kStatusPace{250};
constexpr std::chrono::milliseconds kPressesApart{500};

} // namespace

/// One command of the operator from beginning to end. A close that comes meanwhile, while a run goes on or a
/// question is on the screen, is put off until the command is over.
class FrmMenu::Command {
public:
    explicit Command(FrmMenu& window) : window_(window) { ++window_.commands_; }
    ~Command()
    {
        if (--window_.commands_ > 0)
            return;
        if (std::exchange(window_.closeWanted_, false))
            QMetaObject::invokeMethod(&window_, &QWidget::close, Qt::QueuedConnection);
        window_.UpdateCommands();
        window_.UpdateStatus();
    }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

private:
    FrmMenu& window_;
};

FrmMenu::FrmMenu(ApplicationState& state, Parts parts)
    : state_(state),
      parts_(std::move(parts)),
      ui_([this] {
          LoadPictures();
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
      run_(
          state, parts_.arrays, parts_.run, [this] { Save(); }, *this)
{
    QIcon icon;
    for (const char* size : {"16", "32", "48", "256"})
        icon.addFile(QStringLiteral(":/pictures/quorvane-%1.png").arg(QLatin1String(size)));
    setWindowIcon(icon);
    ui_->vaSpread1->setModel(table_);
    ui_->Command2->setIcon(ui_->MenuAlarmReset->icon());
    SetFonts();
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
    SetCaptions();
    table_->SetDecimalSign(parts_.locale.DecimalSign());
    limits_.Fill();
    ShowMode();
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

void FrmMenu::Connect()
{
    connect(ui_->Command1, &QPushButton::clicked, this, [this] { Command1Click(); });
    connect(ui_->MenuMeasureStart, &QAction::triggered, this, [this] { Command1Click(); });
    connect(ui_->MenuMeasureEnd, &QAction::triggered, this, [this] { Command1Click(); });
    connect(ui_->Command2, &QPushButton::clicked, this, [this] { run_.ResetAlarms(); });
    connect(ui_->MenuAlarmReset, &QAction::triggered, this, [this] { run_.ResetAlarms(); });
    connect(ui_->MenuSave, &QAction::triggered, this, [this] { MenuSave(); });
    connect(ui_->MenuExit, &QAction::triggered, this, [this] { Exit(); });
}

/// What is read from a distance is large; what must not be overlooked is loud, whatever the desktop's
/// colours.
void FrmMenu::SetFonts()
{
    const auto enlarge = [](QWidget& widget, double factor) {
        QFont font = widget.font();
        font.setPointSizeF(font.pointSizeF() * factor);
        font.setBold(true);
        widget.setFont(font);
    };
    enlarge(*ui_->Command1, 1.25);
    enlarge(*ui_->SimulatedNotice, 1.25);
    ui_->SimulatedNotice->setStyleSheet(
        QStringLiteral("QLabel { background: #ffd400; color: black; border: 2px solid black; }"));
}

void FrmMenu::SetShortcuts()
{
    ui_->MenuSave->setShortcut(QKeySequence::Save);
    ui_->MenuExit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    ui_->MenuMeasureStart->setShortcut(QKeySequence(Qt::Key_F5));
    ui_->MenuMeasureEnd->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F5));
    ui_->MenuAlarmReset->setShortcut(QKeySequence(Qt::Key_F8));
}

void FrmMenu::SetCaptions()
{
    const auto text = [this](int id) { return Shown(parts_.run.texts[id]); };
    setWindowTitle(text(kTitleText) + QStringLiteral("[*]"));
    ui_->MenuFile->setTitle(text(kFileMenuText));
    ui_->MenuMeasure->setTitle(text(kMeasureMenuText));
    ui_->MenuSave->setText(text(kSaveCommandText));
    ui_->MenuExit->setText(text(kExitCommandText));
    ui_->MenuMeasureStart->setText(text(kStartCaption));
    ui_->MenuMeasureEnd->setText(text(kEndCaption));
    ui_->MenuAlarmReset->setText(text(kAlarmResetText));
    ui_->Command1->setToolTip(text(kStartTipText));
    ui_->Command2->setText(text(kAlarmResetText));
    ui_->Command2->setToolTip(text(kAlarmResetTipText));
    ui_->SimulatedNotice->setText(text(kSimulatedNoticeText));
    ui_->CountName->setText(text(kCountMeaningText));
    ui_->vaSpread1->setAccessibleName(text(kTableText));
    ui_->vaSpread1->SetCopyText(text(kCopyCommandText));

    ui_->CountNow->setAccessibleName(text(kCountMeaningText));
    exposure_.SetCaptions(parts_.run.texts);

    QStringList headings;
    for (const int id : {kTimeColumnText, kCountColumnText, kConcColumnText, kTwaColumnText, kStelColumnText,
                         kIntegratedCountColumnText, kIntegratedConcColumnText})
        headings << UnitBelow(text(id));
    table_->SetHeadings(headings);
}

void FrmMenu::ShowMode()
{
    ui_->SimulatedNotice->setVisible(!state_.RunMode);
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
    ui_->MenuSave->setEnabled(enabled.save);
    limits_.SetEnabled(enabled.limitInputs);
    if (enabled.command1 && std::exchange(button1HadFocus_, false))
        ui_->Command1->setFocus(); // it was disabled for a moment, and the focus went on
    setWindowModified(state_.DataPresent == 1 && state_.DataSaved == 0);
}

void FrmMenu::UpdateStatus()
{
    RunStatusText text = StatusText(state_, run_.State(), run_.Status(), parts_.run.texts);
    if (closeWanted_)
        text.state = parts_.run.texts[kClosingText];
    status_.Show(text);
    readings_.SetStale(text.stale);
}

// ---- commands -------------------------------------------------------------------------------------------

/// Presses in quick succession are one, be it a double click or a key held down: the second would stop what
/// the first has started, or give the stop exchange up.
bool FrmMenu::IsPressOfItsOwn()
{
    const auto now = parts_.run.clock.SteadyNow();
    const bool own = !lastPress_ || now - *lastPress_ >= kPressesApart;
    lastPress_ = now;
    return own;
}

void FrmMenu::Command1Click()
{
    if (!IsPressOfItsOwn())
        return;
    if (run_.Command1CaptionId() == kEndCaption) {
        run_.Stop();
        return;
    }
    if (Busy() || !limits_.Validate())
        return;
    // The run serves events until it ends; it must not do so inside the menu's or the button's own handler.
    QMetaObject::invokeMethod(
        this, [this] { StartMeasurement(); }, Qt::QueuedConnection);
}

void FrmMenu::StartMeasurement()
{
    if (Busy() || !isVisible()) // it was queued, and the window may have closed since
        return;
    const Command command(*this);
    if (run_.Start() == RunResult::LimitsDisorder)
        ui_->Text1->setFocus();
}

void FrmMenu::MenuSave()
{
    if (Busy())
        return;
    const Command command(*this);
    Save();
}

SaveResult FrmMenu::Save()
{
    const SaveResult result = parts_.saveCommand.SaveMeasurement();
    UpdateCommands();
    return result;
}

/// The settings are written before the window asks its question, and once more when it closes.
void FrmMenu::Exit()
{
    parts_.settings.SaveSettings();
    close();
}

void FrmMenu::closeEvent(QCloseEvent* event)
{
    if (Busy()) {
        PutCloseOff();
        event->ignore();
        return;
    }
    const Command command(*this);
    const bool mayClose = MayClose();
    event->setAccepted(mayClose);
    if (!mayClose)
        return;
    parts_.settings.SaveSettings();
    parts_.closed();
}

/// A run stops as by the stop button, with its stop exchange; the close comes back when it has ended.
void FrmMenu::PutCloseOff()
{
    closeWanted_ = true;
    UpdateStatus();
    if (run_.State() == RunState::Starting || run_.State() == RunState::Measuring)
        run_.Stop(); // not in its stop exchange: that would give it up
}

/// Readings that are to be saved and are not keep the window open.
bool FrmMenu::MayClose()
{
    if (state_.DataPresent != 1 || state_.DataSaved != 0)
        return true;
    const Answer answer =
        Ask({.text = parts_.run.texts[kUnsavedText], .icon = Icon::Critical, .buttons = Buttons::YesNo});
    return answer == Answer::No || Save() == SaveResult::Saved;
}

/// A message is a command, too: the window does not close behind it.
Answer FrmMenu::Ask(const Message& message)
{
    const Command command(*this);
    return parts_.run.prompts.Show(message);
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
}

void FrmMenu::ReadingsCleared()
{
    table_->Reset(0);
}

void FrmMenu::SampleAdded(int sample)
{
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
    ShowReading(state_.SampleCount);
}

} // namespace quorvane
