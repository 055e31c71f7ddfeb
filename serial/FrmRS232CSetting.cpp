#include "serial/FrmRS232CSetting.h"

#include "app/ProgramFont.h"
#include "app/ProgramIcon.h"
#include "app/QtText.h"
#include "app/ScopedFlag.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"
#include "serial/PortNotes.h"
#include "serial/ui_FrmRS232CSetting.h"

#include <QAbstractItemView>
#include <QShortcut>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>

namespace quorvane {
namespace {

constexpr int kNoteWidthLines = 30; ///< width of the notes in heights of a line
constexpr int kLeastNoteLines = 6;
constexpr int kNoteGap = 5; ///< pixels between one note and the next

/// The list's entries, and as before the one that is selected. Touches nothing when they are there already.
void SetEntries(QComboBox& list, const std::vector<std::string>& entries)
{
    QStringList wanted;
    for (const std::string& entry : entries)
        wanted += Shown(entry);
    QStringList present;
    for (int i = 0; i < list.count(); ++i)
        present += list.itemText(i);
    if (wanted == present)
        return;
    const int selected = list.currentIndex();
    list.clear();
    list.addItems(wanted);
    list.setCurrentIndex(selected);
}

/// Never as markup, whatever the device calls itself.
QString ToolTip(const std::string& text)
{
    return Qt::convertFromPlainText(Shown(text));
}

} // namespace

FrmRS232CSetting::FrmRS232CSetting(PortSettings& port, Parts parts, QWidget* parent)
    : QDialog(parent),
      parts_(std::move(parts)),
      edit_(port),
      ui_([this] {
          auto ui = std::make_unique<Ui::FrmRS232CSetting>();
          ui->setupUi(this);
          return ui;
      }()),
      lineLists_{{{ui_->Combo3, LineField::BaudRate},
                  {ui_->Combo4, LineField::DataBits},
                  {ui_->Combo5, LineField::Parity},
                  {ui_->Combo6, LineField::StopBits},
                  {ui_->Combo7, LineField::Flow}}}
{
    setWindowIcon(ProgramIcon());
    SetCaptions();
    SetFonts();
    ShowLineSettings();
    ReadPorts();
    Connect();
    ui_->Combo2->setFocus();
}

FrmRS232CSetting::~FrmRS232CSetting() = default;

void FrmRS232CSetting::SetCaptions()
{
    const Texts& texts = parts_.texts;
    setWindowTitle(Shown(texts[kPortSettingText]));
    const std::pair<QLabel*, int> labels[] = {
        {ui_->Label1, kChannelText}, {ui_->Label2, kPortText},           {ui_->Label3, kBaudRateText},
        {ui_->Label4, kDataBitText}, {ui_->Label5, kParityText},         {ui_->Label6, kStopBitText},
        {ui_->Label7, kFlowText},    {ui_->ForcedLine, kForcedLineText},
    };
    for (const auto& [label, id] : labels)
        label->setText(Shown(texts[id]));
    SetEntries(*ui_->Combo1, {texts[kChannel1Text]});
    for (const auto& [list, field] : lineLists_)
        SetEntries(*list, LineEntries(field, texts));
    ui_->SearchAgain->setText(Shown(texts[kSearchAgainText]));
    ui_->SearchAgain->setToolTip(Shown(texts[kSearchAgainTipText]));
    ui_->PortNotes->setAccessibleName(Shown(texts[kPortNotesText]));
    ui_->Command1->setText(Shown(texts[kOkText]));
    ui_->Command2->setText(Shown(texts[kCancelText]));
}

/// The notes may change without changing the dialog's size: what they have no room for can be scrolled to.
void FrmRS232CSetting::SetFonts()
{
    SetWindowFont(*this, parts_.texts);
    const int line = fontMetrics().lineSpacing();
    ui_->PortNotes->setMinimumSize(kNoteWidthLines * line, kLeastNoteLines * line);
    // Or the lists are squeezed for its second line when the dialog is made smaller.
    ui_->ForcedLine->setMinimumHeight(ui_->ForcedLine->heightForWidth(kNoteWidthLines * line));
}

/// What the operator picks is an edit, with the mouse, the keys or the wheel; what the program selects is
/// not.
void FrmRS232CSetting::Connect()
{
    connect(ui_->Combo2, &QComboBox::activated, this, &FrmRS232CSetting::Combo2Click);
    for (const auto& [list, field] : lineLists_)
        connect(list, &QComboBox::activated, this,
                [this, picked = field](int index) { edit_.Pick(picked, index); });
    connect(ui_->SearchAgain, &QPushButton::clicked, this, [this] { DevicesChanged(); });
    connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, ui_->SearchAgain, &QPushButton::click);
    ui_->Combo2->view()->installEventFilter(this);
    connect(ui_->Command1, &QPushButton::clicked, this, [this] { accept(); });
    connect(ui_->Command2, &QPushButton::clicked, this, [this] { reject(); });
}

void FrmRS232CSetting::ShowLineSettings()
{
    ui_->Combo1->setCurrentIndex(0);
    for (const auto& [list, field] : lineLists_)
        list->setCurrentIndex(edit_.Selected(field));
}

// ---- the ports ------------------------------------------------------------------------------------------

void FrmRS232CSetting::DevicesChanged()
{
    readLater_ = ui_->Combo2->view()->isVisible();
    if (!readLater_)
        ReadPorts();
}

/// What was picked arrives behind the folding up.
bool FrmRS232CSetting::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && readLater_)
        QMetaObject::invokeMethod(this, &FrmRS232CSetting::DevicesChanged, Qt::QueuedConnection);
    return QDialog::eventFilter(watched, event);
}

void FrmRS232CSetting::ReadPorts()
{
    ports_ = ScanPorts(parts_.names, parts_.probe, parts_.descriptions);
    ShowPorts();
    ShowNotes();
}

void FrmRS232CSetting::ShowPorts()
{
    SetEntries(*ui_->Combo2, UsablePorts(ports_));
    int entry = 0;
    for (const FoundPort& port : ports_)
        if (!port.fault)
            ui_->Combo2->setItemData(entry++, ToolTip(DeviceText(port, parts_.texts)), Qt::ToolTipRole);
    ui_->Combo2->setCurrentIndex(
        ui_->Combo2->findText(Shown(edit_.Port()), Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

/// Set only when they differ, or a selection that the operator has made in them would be lost.
void FrmRS232CSetting::ShowNotes()
{
    QStringList notes;
    for (const std::string& note : PortNotes(ports_, edit_.Port(), parts_.texts))
        notes += Shown(note);
    ui_->Combo2->setAccessibleDescription(notes.first());
    const QString text = notes.join(u'\n');
    if (text == ui_->PortNotes->toPlainText())
        return;
    ui_->PortNotes->setPlainText(text);
    QTextBlockFormat gap;
    gap.setBottomMargin(kNoteGap);
    QTextCursor all(ui_->PortNotes->document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(gap);
}

/// The message is queued: the list is still folding up.
void FrmRS232CSetting::Combo2Click(int index)
{
    edit_.SetPort(Typed(ui_->Combo2->itemText(index)));
    ShowNotes();
    if (const auto overlap = PortOverlap(edit_.Port(), parts_.secondChannelPort, parts_.texts))
        QMetaObject::invokeMethod(
            this, [this, message = *overlap] { Tell(message); }, Qt::QueuedConnection);
}

/// Told of once, in front of the dialog on the screen; the notes tell of it all the time.
void FrmRS232CSetting::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!std::exchange(shownBefore_, true) && ui_->Combo2->count() == 0)
        QMetaObject::invokeMethod(
            this, [this] { Tell(NoPortMessage(parts_.texts)); }, Qt::QueuedConnection);
}

void FrmRS232CSetting::Tell(const Message& message)
{
    if (!isVisible()) // it was queued, and the dialog has closed since
        return;
    const ScopedFlag telling(telling_);
    parts_.tell(message);
}

/// Every way out ends here: OK, Cancel, Escape, the close box. Not below a message, which would stay behind.
void FrmRS232CSetting::done(int result)
{
    if (telling_)
        return;
    if (result != Accepted)
        edit_.Restore();
    QDialog::done(result);
}

} // namespace quorvane
