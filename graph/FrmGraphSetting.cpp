#include "graph/FrmGraphSetting.h"

#include "app/ProgramFont.h"
#include "app/ProgramIcon.h"
#include "app/QtText.h"
#include "app/ScopedFlag.h"
#include "graph/ui_FrmGraphSetting.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <algorithm>
#include <utility>

namespace quorvane {

FrmGraphSetting::FrmGraphSetting(GraphFlags& flags, const Texts& texts,
                                 std::function<void(const Message&)> tell, QWidget* parent)
    : QDialog(parent),
      texts_(texts),
      tell_(std::move(tell)),
      selection_(flags),
      ui_([this] {
          auto ui = std::make_unique<Ui::FrmGraphSetting>();
          ui->setupUi(this);
          return ui;
      }()),
      boxes_{ui_->Check1, ui_->Check2, ui_->Check3, ui_->Check4, ui_->Check5,
             ui_->Check6, ui_->Check7, ui_->Check8, ui_->Check9}
{
    setWindowIcon(ProgramIcon());
    SetFonts();
    SetCaptions();
    ConnectBoxes();
    connect(ui_->Command1, &QPushButton::clicked, this, [this] {
        selection_.OkPressed = true;
        accept();
    });
    connect(ui_->Command2, &QPushButton::clicked, this, [this] { reject(); });
    Refresh();
    FocusFirst();
}

FrmGraphSetting::~FrmGraphSetting() = default;

void FrmGraphSetting::SetFonts()
{
    SetWindowFont(*this, texts_);
}

void FrmGraphSetting::SetCaptions()
{
    const auto text = [this](int id) { return Shown(texts_[id]); };
    setWindowTitle(text(kGraphSettingText));
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        boxes_[i]->setText(Shown(CaptionOf(kGraphChoices[i], texts_)));
    ui_->Command1->setText(text(kOkText));
    ui_->Command2->setText(text(kCancelText));
    ui_->RelativeGroup->setTitle(text(kRelativeGroupText));
    ui_->MassGroup->setTitle(text(kMassGroupText));
    ui_->AlarmGroup->setTitle(text(kAlarmGroupText));
    ui_->Hint->setText(text(kGraphHintText));
}

/// A box is clicked by the mouse or by the space bar, and both end with a release. The alarm lines decide
/// nothing about the other boxes.
void FrmGraphSetting::ConnectBoxes()
{
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        const GraphChoice& choice = kGraphChoices[i];
        connect(boxes_[i], &QCheckBox::clicked, this, [this, &choice](bool checked) {
            selection_.SetChecked(choice, checked);
            if (choice.group != GraphGroup::Alarm)
                Refresh();
        });
    }
}

/// Enabled before disabled: the focus of a box that is disabled goes to the next one that is not.
void FrmGraphSetting::Refresh()
{
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        boxes_[i]->setChecked(selection_.IsChecked(kGraphChoices[i]));
    selection_.Count();
    for (const bool enabled : {true, false})
        for (std::size_t i = 0; i < boxes_.size(); ++i)
            if (selection_.IsEnabled(kGraphChoices[i]) == enabled)
                boxes_[i]->setEnabled(enabled);
}

void FrmGraphSetting::FocusFirst()
{
    if (const auto* const first = std::ranges::find_if(boxes_, &QCheckBox::isEnabled); first != boxes_.end())
        (*first)->setFocus();
}

/// Every way out ends here: OK, Cancel, Escape, the close box.
void FrmGraphSetting::done(int result)
{
    if (telling_)
        return;
    if (selection_.Close()) {
        QDialog::done(result);
        return;
    }
    const ScopedFlag telling(telling_);
    tell_(NoGraphMessage(texts_));
}

} // namespace quorvane
