#include "instrument/FrmQuorvaneSetting.h"

#include "app/ProgramFont.h"
#include "app/QtText.h"
#include "files/NumberText.h"
#include "instrument/SettingCaptions.h"
#include "instrument/ui_FrmQuorvaneSetting.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QTabBar>
#include <algorithm>
#include <utility>

namespace quorvane {
namespace {

constexpr int kHours = 24;
constexpr int kSixty = 60;

/// "00", "01" ... up to so many.
void FillWithNumbers(QComboBox& list, int count)
{
    for (int number = 0; number < count; ++number)
        list.addItem(QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')));
}

} // namespace

/// A message or a file dialog from beginning to end: the dialog does not close below it.
class FrmQuorvaneSetting::Question {
public:
    explicit Question(FrmQuorvaneSetting& dialog) : dialog_(dialog) { ++dialog_.questions_; }
    ~Question()
    {
        if (--dialog_.questions_ == 0 && dialog_.closeWanted_)
            QMetaObject::invokeMethod(&dialog_, &QDialog::reject, Qt::QueuedConnection);
    }
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;

private:
    FrmQuorvaneSetting& dialog_;
};

FrmQuorvaneSetting::FrmQuorvaneSetting(ApplicationState& state, const Parts& parts, QWidget* parent)
    : QDialog(parent),
      state_(state),
      parts_(parts),
      texts_(parts.session.texts),
      program_{state, parts.session.locale, parts.session.clock, parts.session.texts},
      measureTime_(state),
      kFactor_(state),
      session_(state, parts.session, *this),
      ui_([this] {
          auto ui = std::make_unique<Ui::FrmQuorvaneSetting>();
          ui->setupUi(this);
          return ui;
      }()),
      programInputs_({StartDateInput(), InputOf(ui_->Text2, ProgramField::Hours),
                      InputOf(ui_->Text3, ProgramField::Minutes), InputOf(ui_->Text1, ProgramField::Count)},
                     [this](const Message& message) { Tell(message); }),
      kFactorInputs_({KFactorInput()}, [this](const Message& message) { Tell(message); })
{
    FillWithNumbers(*ui_->Combo1, kHours);
    FillWithNumbers(*ui_->Combo2, kSixty);
    FillWithNumbers(*ui_->Combo3, kSixty);
    SetFonts();
    SetCaptions();
    Connect();
}

FrmQuorvaneSetting::~FrmQuorvaneSetting() = default;

void FrmQuorvaneSetting::SetFonts()
{
    SetWindowFont(*this, texts_);
    SetSettingFonts(*ui_, font());
}

void FrmQuorvaneSetting::SetCaptions()
{
    setWindowTitle(Shown(texts_[kInstrumentSettingText]));
    SetSettingCaptions(*ui_, texts_);
}

// ---- opening and closing --------------------------------------------------------------------------------

void FrmQuorvaneSetting::Load()
{
    ShowStartTime();
    session_.Open();
    ShowProgram();
    kFactorInputs_.Fill();
    ShowLink();
    if (closed_)
        return; // behind the message that the port cannot be opened
    show();
    activateWindow();
    ui_->SSTab1->tabBar()->setFocus(); // not in a box, which could refuse to be left for another page
}

void FrmQuorvaneSetting::closeEvent(QCloseEvent* event)
{
    event->ignore(); // it hides when it has closed
    reject();
}

void FrmQuorvaneSetting::reject()
{
    closeWanted_ = true;
    if (questions_ > 0 || closed_)
        return;
    programInputs_.TakeEdited();
    measureTime_.Close();
    kFactor_.Close();
    session_.Close();
}

/// The close button leaves a box like any other control, so a refused one keeps the dialog; the close box and
/// Escape do not look.
void FrmQuorvaneSetting::Command6Click()
{
    if (programInputs_.CheckEdited() && kFactorInputs_.CheckEdited())
        reject();
}

void FrmQuorvaneSetting::Closed()
{
    closed_ = true;
    parts_.closed(); // so that the main window can be used again when it comes to the front
    hide();
}

void FrmQuorvaneSetting::Tell(const Message& message)
{
    const Question question(*this);
    parts_.session.prompts.Show(message);
}

void FrmQuorvaneSetting::Connect()
{
    for (QComboBox* const list : {ui_->Combo1, ui_->Combo2, ui_->Combo3})
        connect(list, &QComboBox::activated, this, [this] { ComboClick(); });
    connect(ui_->SSTab1, &QTabWidget::currentChanged, this, [this](int page) { TabChanged(page); });
    connect(ui_->Command1, &QPushButton::clicked, this, [this] { SendProgram(); });
    connect(ui_->Command3, &QPushButton::clicked, this, [this] { session_.Send(InstrumentSend::Clock); });
    connect(ui_->Command5, &QPushButton::clicked, this, [this] { SendKFactor(); });
    connect(ui_->Command6, &QPushButton::clicked, this, [this] { Command6Click(); });
    connect(ui_->Refresh, &QPushButton::clicked, this, [this] { session_.RefreshClock(); });
    connect(ui_->CommandOpen, &QPushButton::clicked, this, [this] { OpenProgram(); });
    connect(ui_->CommandSave, &QPushButton::clicked, this, [this] { SaveProgram(); });
    for (const CheckedBox* const box : {ui_->Text1, ui_->Text2, ui_->Text3, ui_->Text4})
        connect(box, &QLineEdit::returnPressed, this, [this, box] { programInputs_.Check(box); });
    connect(ui_->Text9, &QLineEdit::returnPressed, this, [this] { kFactorInputs_.Check(ui_->Text9); });
}

/// Enter presses the button that has the focus, and no other: in a box it takes what was typed, and must not
/// send half a program.
void FrmQuorvaneSetting::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QDialog::keyPressEvent(event);
    else if (auto* const button = qobject_cast<QPushButton*>(focusWidget()))
        button->click();
}

// ---- the measuring program ------------------------------------------------------------------------------

CheckedInputs::Input FrmQuorvaneSetting::InputOf(CheckedBox* box, ProgramField field)
{
    const std::string sign = parts_.session.locale.DecimalSign();
    return {
        .box = box,
        .edited = [](std::string_view) { return true; }, // stored when the box is left
        .left =
            [this, field, sign](std::string_view text) {
                const bool withinPair = ui_->Text2->hasFocus() || ui_->Text3->hasFocus();
                refusal_ = field == ProgramField::Count
                               ? LeaveProgramNumber(program_, field, text, sign)
                               : measureTime_.Leave(program_, field, text, sign, withinPair);
                ShowTotal();
                return !refusal_;
            },
        .stored = [this, field, sign] { return GeneralText(ProgramNumber(state_, field), sign); },
        .refusal = [this] { return *refusal_; },
    };
}

CheckedInputs::Input FrmQuorvaneSetting::StartDateInput()
{
    return {
        .box = ui_->Text4,
        .edited =
            [this](std::string_view text) {
                typedDate_ = text;
                return true;
            },
        .left =
            [this](std::string_view text) {
                refusal_ = LeaveStartDate(program_, text);
                if (!refusal_)
                    typedDate_ = state_.ProgramStartDate; // blanks around it are gone
                ShowDateHint();
                return !refusal_;
            },
        .stored = [this] { return typedDate_; },
        .refusal = [this] { return *refusal_; },
    };
}

void FrmQuorvaneSetting::ShowProgram()
{
    typedDate_ = state_.ProgramStartDate;
    programInputs_.Fill();
    ShowDateHint();
    ShowTotal();
}

/// How a date is written here; and that the one that is set will be left out, for nothing else would say so.
void FrmQuorvaneSetting::ShowDateHint()
{
    const LocaleItems& locale = parts_.session.locale;
    const bool sent =
        !RequestDate(state_.ProgramStartDate, state_, locale, parts_.session.clock.Now()).empty();
    ui_->DateHint->setText(Shown(sent ? locale.ShortDateFormat() : texts_[kDateLeftOutText]));
}

/// No entry is chosen for a time that is none, as from a file without one.
void FrmQuorvaneSetting::ShowStartTime()
{
    const std::optional<StartTime> time = ReadStartTime(state_.ProgramStartTime);
    ui_->Combo1->setCurrentIndex(time ? time->hours : -1);
    ui_->Combo2->setCurrentIndex(time ? time->minutes : -1);
    ui_->Combo3->setCurrentIndex(time ? time->seconds : -1);
}

void FrmQuorvaneSetting::ShowTotal()
{
    const std::string sign = parts_.session.locale.DecimalSign();
    ui_->TotalHours->setText(Shown(GeneralText(state_.ProgramTotalHours, sign)));
    ui_->TotalMinutes->setText(Shown(GeneralText(state_.ProgramTotalMinutes, sign)));
}

void FrmQuorvaneSetting::ComboClick()
{
    const auto chosen = [](const QComboBox* list) { return std::max(list->currentIndex(), 0); };
    state_.ProgramStartTime = StartTimeText(chosen(ui_->Combo1), chosen(ui_->Combo2), chosen(ui_->Combo3));
    ShowStartTime();
}

void FrmQuorvaneSetting::SendProgram()
{
    if (programInputs_.CheckEdited())
        session_.Send(InstrumentSend::Program);
}

void FrmQuorvaneSetting::ProgramRefused(ProgramField field)
{
    const std::pair<ProgramField, QWidget*> controls[] = {{ProgramField::StartDate, ui_->Text4},
                                                          {ProgramField::StartTime, ui_->Combo1},
                                                          {ProgramField::Hours, ui_->Text2},
                                                          {ProgramField::Minutes, ui_->Text3},
                                                          {ProgramField::Count, ui_->Text1}};
    for (const auto& [refused, control] : controls) {
        if (refused != field)
            continue;
        control->setFocus();
        if (auto* const box = qobject_cast<QLineEdit*>(control))
            box->selectAll();
    }
}

void FrmQuorvaneSetting::OpenProgram()
{
    const Question question(*this);
    if (!parts_.programFile.OpenProgram())
        return;
    measureTime_ = MeasureTimeEdit(state_);
    ShowStartTime();
    ShowProgram();
}

void FrmQuorvaneSetting::SaveProgram()
{
    if (!programInputs_.CheckEdited())
        return;
    const Question question(*this);
    parts_.programFile.SaveProgram();
}

// ---- the clock ------------------------------------------------------------------------------------------

/// The box with the focus is left with its page, and so is one that was typed in; when one is refused, the
/// page comes back.
void FrmQuorvaneSetting::TabChanged(int page)
{
    CheckedInputs& left = page_ == kKFactorPage ? kFactorInputs_ : programInputs_;
    const auto* const focus = qobject_cast<CheckedBox*>(ui_->SSTab1->widget(page_)->focusWidget());
    if (page != page_ && page_ != kClockPage) {
        const QSignalBlocker quiet(ui_->SSTab1);
        ui_->SSTab1->setCurrentIndex(page_); // the box can take the focus again only where it is shown
        if (!left.CheckEdited() || !left.Check(focus))
            return;
        ui_->SSTab1->setCurrentIndex(page);
    }
    page_ = page;
    session_.ShowClockPage(page == kClockPage);
}

void FrmQuorvaneSetting::ClockRequest(const std::string& request)
{
    ui_->Label23->setText(Shown(request));
}

void FrmQuorvaneSetting::ComputerClockRead(const ClockTexts& clock)
{
    ui_->Text5->setText(Shown(clock.date));
    ui_->Text6->setText(Shown(clock.time));
}

void FrmQuorvaneSetting::InstrumentClockRead(const ClockTexts& clock)
{
    ui_->Text7->setText(Shown(clock.date));
    ui_->Text8->setText(Shown(clock.time));
    ShowLink();
}

// ---- the K-factor ---------------------------------------------------------------------------------------

CheckedInputs::Input FrmQuorvaneSetting::KFactorInput()
{
    const std::string sign = parts_.session.locale.DecimalSign();
    return {
        .box = ui_->Text9,
        .edited = [this, sign](std::string_view text) { return kFactor_.TextChanged(text, sign); },
        .left = [this](std::string_view) { return kFactor_.IsValid(); },
        .stored = [this, sign] { return GeneralText(state_.KFactor, sign); },
        .refusal = [this] { return KFactorRangeMessage(texts_); },
    };
}

void FrmQuorvaneSetting::SendKFactor()
{
    if (kFactorInputs_.CheckEdited())
        session_.Send(InstrumentSend::KFactor);
}

void FrmQuorvaneSetting::KFactorRefused()
{
    kFactorInputs_.Fill();
    ui_->Text9->setFocus();
    ui_->Text9->selectAll();
}

// ---- an exchange ----------------------------------------------------------------------------------------

void FrmQuorvaneSetting::ExchangeBegan(InstrumentSend send)
{
    focusBefore_ = focusWidget();
    setCursor(Qt::BusyCursor);
    ui_->Command6->setEnabled(false);
    if (send == InstrumentSend::KFactor)
        ui_->Command5->setEnabled(false);
    ui_->SSTab1->setEnabled(false);
    ui_->LinkStatus->setText(Shown(texts_[kExchangeText]));
}

void FrmQuorvaneSetting::ExchangeEnded(InstrumentSend)
{
    unsetCursor();
    ui_->Command5->setEnabled(true);
    ui_->Command6->setEnabled(true);
    ui_->SSTab1->setEnabled(true);
    if (focusBefore_)
        focusBefore_->setFocus();
    ShowLink();
}

void FrmQuorvaneSetting::ShowLink()
{
    ui_->Notice->setVisible(!state_.RunMode);
    const int id = parts_.session.control.IsOpen() ? kLinkOpenText : kLinkClosedText;
    ui_->LinkStatus->setText(state_.RunMode ? Shown(FilledIn(texts_[id], state_.RsPort)) : QString());
}

} // namespace quorvane
