#include "measure/FrmMeasureSetting.h"

#include "app/ProgramFont.h"
#include "app/QtText.h"
#include "files/NumberText.h"
#include "measure/ui_FrmMeasureSetting.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <utility>

namespace quorvane {

FrmMeasureSetting::FrmMeasureSetting(MeasureSettings& settings, const Texts& texts, const LocaleItems& locale,
                                     std::function<void(const Message&)> tell, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      locale_(locale),
      edit_(settings),
      ui_([this] {
          auto ui = std::make_unique<Ui::FrmMeasureSetting>();
          ui->setupUi(this);
          return ui;
      }()),
      inputs_({InputOf(ui_->Text1, MeasureField::MeasureNumber, texts),
               InputOf(ui_->Text2, MeasureField::MeasureSetting2, texts),
               InputOf(ui_->Text3, MeasureField::SamplingSeconds, texts)},
              std::move(tell))
{
    SetFonts(texts);
    SetCaptions(texts);
    inputs_.SetWayOut(ui_->Command2);
    connect(ui_->Command1, &QPushButton::clicked, this, [this] { Command1Click(); });
    connect(ui_->Command2, &QPushButton::clicked, this, [this] { reject(); });
    ShowAll();
    ui_->Text1->setFocus();
    ui_->Text1->selectAll();
}

FrmMeasureSetting::~FrmMeasureSetting() = default;

void FrmMeasureSetting::SetCaptions(const Texts& texts)
{
    setWindowTitle(Shown(texts[kMeasureSettingText]));
    const std::pair<QLabel*, int> labels[] = {
        {ui_->Label1, kMeasureNumberText}, {ui_->Label2, kSamplingTimeText},  {ui_->Label3, kTotalTimeText},
        {ui_->Label4, kColonText},         {ui_->Label5, kHoursColonText},    {ui_->Label6, kColonText},
        {ui_->Label7, kSecondsUnitText},   {ui_->Label8, kBehindSecondsText},
    };
    for (const auto& [label, id] : labels)
        label->setText(Shown(texts[id]));
    ui_->Command1->setText(Shown(texts[kOkText]));
    ui_->Command2->setText(Shown(texts[kCancelText]));

    const std::pair<QLineEdit*, int> meanings[] = {
        {ui_->Text1, kMeasureNumberTipText}, {ui_->Text2, kSecondCountTipText},
        {ui_->Text3, kSamplingTipText},      {ui_->Text4, kHoursText},
        {ui_->Text5, kMinutesText},          {ui_->Text6, kSecondsText},
    };
    for (const auto& [box, id] : meanings) {
        box->setToolTip(Shown(texts[id]));
        box->setAccessibleName(Shown(texts[id]));
    }
}

/// The boxes are as wide as the longest number and their frames.
void FrmMeasureSetting::SetFonts(const Texts& texts)
{
    SetWindowFont(*this, texts);
    const int width = fontMetrics().horizontalAdvance(u"0000000000"_qs);
    for (QLineEdit* const box : {static_cast<QLineEdit*>(ui_->Text1), static_cast<QLineEdit*>(ui_->Text2),
                                 static_cast<QLineEdit*>(ui_->Text3), ui_->Text4, ui_->Text5, ui_->Text6})
        box->setFixedWidth(width);
}

/// Every edit brings all boxes up to date, the one that is typed in, too: an emptied one shows 0 at once, and
/// "05" becomes "5".
CheckedInputs::Input FrmMeasureSetting::InputOf(CheckedBox* box, MeasureField field, const Texts& texts)
{
    return {
        .box = box,
        .edited =
            [this, field](std::string_view text) {
                const bool taken = edit_.TextChanged(field, text, locale_.DecimalSign());
                if (taken && field != MeasureField::MeasureSetting2)
                    ShowAll();
                return taken;
            },
        .left =
            [this, field](std::string_view text) {
                const bool taken = edit_.TextLeft(field, text, locale_.DecimalSign());
                ShowTotal();
                return taken;
            },
        .stored = [this, field] { return GeneralText(edit_.Stored(field), locale_.DecimalSign()); },
        .refusal = [field, &texts] { return MeasureRangeMessage(field, texts); },
    };
}

void FrmMeasureSetting::Command1Click()
{
    if (!inputs_.Validate())
        return;
    edit_.Accepted = true;
    accept();
}

/// Every way out ends here: OK, Cancel, Escape, the close box.
void FrmMeasureSetting::done(int result)
{
    edit_.Close();
    QDialog::done(result);
}

void FrmMeasureSetting::ShowAll()
{
    inputs_.Fill();
    ShowTotal();
}

void FrmMeasureSetting::ShowTotal()
{
    const std::pair<QLineEdit*, double> total[] = {
        {ui_->Text4, settings_.TotalHours},
        {ui_->Text5, settings_.TotalMinutes},
        {ui_->Text6, settings_.TotalSeconds},
    };
    for (const auto& [box, value] : total)
        box->setText(Shown(GeneralText(value, locale_.DecimalSign())));
}

} // namespace quorvane
