#include "app/FrmMenu.h"
#include "app/FrmMenuCommand.h"
#include "app/ModalDialog.h"
#include "app/QtText.h"
#include "app/ui_FrmMenu.h"
#include "graph/FrmGraphSetting.h"
#include "measure/FrmMeasureSetting.h"
#include "options/FrmHelp.h"
#include "options/FrmOption.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QCloseEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <utility>

namespace quorvane {
namespace {

constexpr std::chrono::milliseconds kPressesApart{500};

/// The one file that is dragged over the window; empty for anything else.
QString DraggedFile(const QMimeData& data)
{
    const QList<QUrl> places = data.urls();
    return places.size() == 1 ? places.first().toLocalFile() : QString();
}

} // namespace

void FrmMenu::Connect()
{
    const std::pair<QAction*, void (FrmMenu::*)()> commands[] = {
        {ui_->MenuOpen, &FrmMenu::MenuOpen},
        {ui_->MenuSave, &FrmMenu::MenuSave},
        {ui_->MenuExit, &FrmMenu::Exit},
        {ui_->MenuMeasureStart, &FrmMenu::Command1Click}, // either acts by the button's caption
        {ui_->MenuMeasureEnd, &FrmMenu::Command1Click},
        {ui_->MenuQuorvaneSetting, &FrmMenu::MenuQuorvaneSetting},
        {ui_->MenuMeasureSetting, &FrmMenu::MenuMeasureSetting},
        {ui_->MenuGraphSetting, &FrmMenu::MenuGraphSetting},
        {ui_->MenuRS232C, &FrmMenu::MenuRS232C},
        {ui_->MenuOption, &FrmMenu::MenuOption},
        {ui_->MenuVersion, &FrmMenu::MenuVersion},
    };
    for (const auto& [action, command] : commands)
        connect(action, &QAction::triggered, this, command);
    const std::pair<QAction*, void (ChartOutput::*)()> pictures[] = {
        {ui_->MenuPrint, &ChartOutput::Print},
        {ui_->MenuPreview, &ChartOutput::Preview},
        {ui_->MenuSaveImage, &ChartOutput::SaveImage},
        {ui_->MenuCopyChart, &ChartOutput::Copy},
    };
    for (const auto& [action, picture] : pictures)
        connect(action, &QAction::triggered, this, [this, made = picture] { (output_.*made)(); });
    connect(ui_->MenuGuide, &QAction::triggered, this, [this] { guide_.Open(); });
    connect(ui_->MenuAlarmReset, &QAction::triggered, this, [this] { run_.ResetAlarms(); });
    connect(ui_->Command1, &QPushButton::clicked, this, &FrmMenu::Command1Click);
    connect(ui_->Command2, &QPushButton::clicked, this, [this] { run_.ResetAlarms(); });
    for (const QLineEdit* limit : {ui_->Text1, ui_->Text2, ui_->Text3}) // its line in the chart moves along
        connect(limit, &QLineEdit::textEdited, ui_->TChart1, &ChartWidget::Repaint);

    const std::pair<QAction*, const char*> keys[] = {
        {ui_->ToolOpen, "Open"}, {ui_->ToolSave, "Save"}, {ui_->ToolPrint, "Print"}, {ui_->ToolHelp, "Help"}};
    for (const auto& [button, key] : keys)
        button->setData(QString::fromLatin1(key));
    connect(ui_->Toolbar1, &QToolBar::actionTriggered, this,
            [this](const QAction* button) { ToolbarClick(button->data().toString()); });
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
    if (run_.Command1CaptionId() == kMeasureEndText) {
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

/// The toolbar's buttons are told apart by their keys; one with another key does nothing.
void FrmMenu::ToolbarClick(const QString& key)
{
    const std::pair<QLatin1String, QAction*> commands[] = {
        {QLatin1String("Open"), ui_->MenuOpen},
        {QLatin1String("Save"), ui_->MenuSave},
        {QLatin1String("Print"), ui_->MenuPrint},
        {QLatin1String("Help"), ui_->MenuVersion},
    };
    for (const auto& [name, command] : commands)
        if (key == name)
            command->trigger();
}

// ---- files ----------------------------------------------------------------------------------------------

void FrmMenu::MenuOpen()
{
    if (Busy())
        return;
    const Command command(*this);
    if (SettleUnsavedData())
        parts_.openCommand.OpenDataFile([this](const std::string& from) { ShowOpened(from); });
}

void FrmMenu::Open(const QString& path)
{
    if (Busy())
        return;
    const Command command(*this);
    if (SettleUnsavedData())
        parts_.openCommand.OpenPath(Typed(path), [this](const std::string& from) { ShowOpened(from); });
}

/// Readings of a run that are replaced by a file's were saved or given up: this is the moment from which on
/// nobody wants their journal. Before it, the file could be refused or not chosen, and they would stay.
void FrmMenu::ShowOpened(const std::string& path)
{
    parts_.journal.Settle();
    ShowReadings(QFileInfo(Shown(path)).fileName());
}

/// The lamps and the large figures tell of a measurement, and this is none.
void FrmMenu::ShowReadings(const QString& file)
{
    run_.ClearLamps();
    openedName_ = file;
    ofThisRun_ = false;
    ShowTitle();
    table_->SetDecimalSign(parts_.locale.DecimalSign());
    table_->Reset(state_.SampleCount);
    ui_->vaSpread1->scrollToTop();
    ShowReading(0);
    chart_.ShowData();
}

void FrmMenu::dragEnterEvent(QDragEnterEvent* event)
{
    if (ui_->MenuOpen->isEnabled() && !DraggedFile(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

/// Whoever dragged the file waits until this returns, so no question is asked in here.
void FrmMenu::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, path = DraggedFile(*event->mimeData())] { Open(path); }, Qt::QueuedConnection);
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

// ---- dialogs --------------------------------------------------------------------------------------------

/// The main window cannot be used until the dialog is closed.
void FrmMenu::ShowDialog(QDialog* dialog)
{
    keeper_.Watch(*dialog);
    if (RunModally(dialog))
        delete dialog;
}

void FrmMenu::MenuMeasureSetting()
{
    if (Busy())
        return;
    const Command command(*this);
    ShowDialog(new FrmMeasureSetting(
        state_, parts_.run.texts, parts_.locale, [this](const Message& message) { Ask(message); }, this));
}

/// The chart is made anew for the view that was chosen, hence the question about unsaved readings; they stay
/// whatever is answered.
void FrmMenu::MenuGraphSetting()
{
    if (Busy())
        return;
    const Command command(*this);
    static_cast<void>(SettleUnsavedData());
    const ChartView before = ViewOf(state_);
    ShowDialog(new FrmGraphSetting(
        state_, parts_.run.texts, [this](const Message& message) { Ask(message); }, this));
    SetFonts();
    SetCaptions();
    chart_.FlagsEdited(before);
}

void FrmMenu::MenuRS232C()
{
    if (Busy())
        return;
    const Command command(*this);
    portSetting_ = new FrmRS232CSetting(state_,
                                        {.names = parts_.portNames,
                                         .probe = parts_.portProbe,
                                         .descriptions = parts_.portDescriptions,
                                         .texts = parts_.run.texts,
                                         .tell = [this](const Message& message) { Ask(message); },
                                         .secondChannelPort = {}}, // this program has one channel
                                        this);
    ShowDialog(portSetting_);
}

void FrmMenu::MenuOption()
{
    if (Busy())
        return;
    const Command command(*this);
    ShowDialog(new FrmOption(state_,
                             {.files = parts_.files,
                              .settings = parts_.settings,
                              .drives = parts_.drives,
                              .texts = parts_.run.texts,
                              .tell = [this](const Message& message) { Ask(message); }},
                             this));
    if (state_.SampleCount == 0)
        chart_.PrepareRun(); // it says what the next readings will be
}

/// It is not modal, because it waits for the instrument in handlers of its own; the window cannot be used
/// all the same, and takes no command until it has closed. The one before closed long ago and is replaced.
void FrmMenu::MenuQuorvaneSetting()
{
    if (Busy())
        return;
    instrumentCommand_ = std::make_shared<Command>(*this);
    instrumentSetting_.reset(); // it shares its timer with the next one
    instrumentSetting_ = std::make_unique<FrmQuorvaneSetting>(
        state_,
        FrmQuorvaneSetting::Parts{.session = {.link = parts_.run.link,
                                              .control = parts_.run.control,
                                              .timer1 = parts_.clockTimer,
                                              .log = parts_.run.log,
                                              .prompts = parts_.run.prompts,
                                              .texts = parts_.run.texts,
                                              .locale = parts_.locale,
                                              .clock = parts_.run.clock},
                                  .programFile = parts_.programFile,
                                  .closed = [this] { InstrumentSettingClosed(); }},
        this);
    keeper_.Watch(*instrumentSetting_);
    if (auto* const about = findChild<QDialog*>(u"FrmHelp"_qs))
        about->close(); // it would be disabled with the window, and stand there dead
    focusBefore_ = focusWidget();
    setEnabled(false);
    instrumentSetting_->setEnabled(true); // a window of its own, but below one that is disabled
    instrumentSetting_->Load();
}

void FrmMenu::InstrumentSettingClosed()
{
    setEnabled(true);
    if (focusBefore_)
        focusBefore_->setFocus();
    instrumentCommand_.reset();
}

/// There while a run goes on: it stands beside the window, so that the run can still be ended, and serves no
/// events itself, for below a loop of its own the wait for a line would not end and no reading would come.
void FrmMenu::MenuVersion()
{
    auto* help = findChild<QDialog*>(u"FrmHelp"_qs);
    if (help == nullptr)
        help = new FrmHelp(state_, parts_.run.texts, this);
    help->setAttribute(Qt::WA_DeleteOnClose);
    help->show();
    help->activateWindow();
}

void FrmMenu::ShowMachineFacts()
{
    if (auto* const help = static_cast<FrmHelp*>(findChild<QDialog*>(u"FrmHelp"_qs)))
        help->Refresh();
}

// ---- the end --------------------------------------------------------------------------------------------

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
    const bool mayClose = SettleUnsavedData(); // or it would lose what is to be saved and is not
    event->setAccepted(mayClose);
    if (!mayClose)
        return;
    parts_.journal.Settle(); // what is not saved by now is not wanted
    parts_.settings.SaveSettings();
    layout_->Keep(chart_.Span());
    parts_.closed();
}

/// A run stops as by the stop button, with its stop exchange; the close comes back when it has ended.
void FrmMenu::PutCloseOff()
{
    closeWanted_ = true;
    UpdateStatus();
    if (instrumentCommand_)
        instrumentSetting_->reject(); // ends its exchange; nothing there is lost
    if (offer_)
        offer_->reject(); // what it offers stays for the next start
    if (run_.State() == RunState::Starting || run_.State() == RunState::Measuring)
        run_.Stop(); // not in its stop exchange: that would give it up
}

bool FrmMenu::RefusesEndOfSystem()
{
    if (offer_) {
        offer_->reject();
        return false;
    }
    if (Busy())
        return true;
    if (!isWindowModified())
        return false;
    QTimer::singleShot(0, this, &QWidget::close);
    return true;
}

/// The question about unsaved readings, before the window closes, a file is opened, or the graph settings
/// come up; a run asks by itself. @return false when they are to be saved and are not.
///
/// "No" alone does not settle their journal: after the graph settings, a file that is not chosen or a run
/// that cannot start they are still there. Whoever takes them away settles it in that moment.
bool FrmMenu::SettleUnsavedData()
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

} // namespace quorvane
