#include "app/FrmRecovery.h"

#include "app/MessageBox.h"
#include "app/ProgramFont.h"
#include "app/ProgramIcon.h"
#include "app/QtText.h"
#include "app/ui_FrmRecovery.h"
#include "instrument/DateTimeText.h"
#include "resources/OwnTexts.h"

#include <utility>

namespace quorvane {

FrmRecovery::FrmRecovery(const LeftOverRun& run, const Texts& texts, const LocaleItems& locale,
                         QWidget* parent)
    : QDialog(parent), texts_(texts), ui_([this] {
          auto ui = std::make_unique<Ui::FrmRecovery>();
          ui->setupUi(this);
          return ui;
      }())
{
    setWindowIcon(ProgramIcon());
    SetWindowFont(*this, texts_);
    SetCaptions();
    ShowRun(run, locale);
    ui_->Command1->setFocus();
    connect(ui_->Command1, &QPushButton::clicked, this, [this] { Choose(Choice::Restore); });
    connect(ui_->Command2, &QPushButton::clicked, this, [this] { Choose(Choice::SaveAs); });
    connect(ui_->Command3, &QPushButton::clicked, this, [this] { DiscardClick(); });
    connect(ui_->Command4, &QPushButton::clicked, this, [this] { reject(); });
}

FrmRecovery::~FrmRecovery() = default;

void FrmRecovery::SetCaptions()
{
    setWindowTitle(Shown(texts_[kRecoveryTitleText]));
    setAccessibleDescription(Shown(texts_[kRecoveryText])); // read out when it opens
    const std::pair<QLabel*, int> labels[] = {
        {ui_->Label1, kRecoveryText},
        {ui_->Label2, kRunStartText},
        {ui_->Label3, kLastReadingText},
        {ui_->Label4, kReadingCountText},
        {ui_->Label5, kGapsText},
        {ui_->Label6, kDamagedCountText},
        {ui_->SimulatedNotice, kChartSimulatedText},
    };
    for (const auto& [label, id] : labels)
        label->setText(Shown(texts_[id]));
    const std::pair<QPushButton*, int> buttons[] = {{ui_->Command1, kRestoreText},
                                                    {ui_->Command2, kSaveRecoveredText},
                                                    {ui_->Command3, kDiscardText},
                                                    {ui_->Command4, kLaterText}};
    for (const auto& [button, id] : buttons)
        button->setText(Shown(texts_[id]));
}

void FrmRecovery::ShowRun(const LeftOverRun& run, const LocaleItems& locale)
{
    ui_->Value2->setText(Shown(SystemDateTimeText(run.start, locale)));
    ui_->Value3->setText(Shown(SystemDateTimeText(run.last, locale)));
    ui_->Value4->setText(QString::number(run.readings));
    ui_->Value5->setText(QString::number(run.gaps));
    ui_->Value6->setText(QString::number(run.damaged));
    for (QLabel* const label : {ui_->Label6, ui_->Value6}) // a journal is hardly ever damaged
        label->setVisible(run.damaged > 0);
    ui_->SimulatedNotice->setVisible(run.simulated);
}

void FrmRecovery::Choose(Choice choice)
{
    chosen_ = choice;
    accept();
}

/// Only one kept copy will be left of them, hence the question. It goes with the dialog when that is closed.
void FrmRecovery::DiscardClick()
{
    ShowMessageBoxLater(
        {.text = texts_[kDiscardQuestionText], .icon = Icon::Exclamation, .buttons = Buttons::YesNo}, texts_,
        this,
        [this](Answer answer) {
            if (answer == Answer::Yes)
                Choose(Choice::Discard);
        },
        WayOut::EscapeIsNo);
}

} // namespace quorvane
