#include "options/FrmOption.h"

#include "app/LanguageOffset.h"
#include "app/ModalDialog.h"
#include "app/ProgramFont.h"
#include "app/ProgramIcon.h"
#include "app/QtText.h"
#include "app/ScopedFlag.h"
#include "options/ui_FrmOption.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"
#include "stored/FrmDriveList.h"

#include <utility>

namespace quorvane {
namespace {

constexpr int kPathDigits = 44; ///< width of the box; a longer path is there all the same, and scrolls
constexpr std::int16_t kChoosesDataFolder = 1;

} // namespace

FrmOption::FrmOption(ApplicationState& state, Parts parts, QWidget* parent)
    : QDialog(parent), state_(state), parts_(std::move(parts)), edit_(state), ui_([this] {
          auto ui = std::make_unique<Ui::FrmOption>();
          ui->setupUi(this);
          return ui;
      }())
{
    setWindowIcon(ProgramIcon());
    SetFonts();
    SetCaptions();
    ShowState();
    ConnectControls();
    ui_->Text1->setFocus();
}

FrmOption::~FrmOption() = default;

void FrmOption::SetCaptions()
{
    const auto text = [this](int id) { return Shown(parts_.texts[id]); };
    setWindowTitle(text(kOptionTitleText));
    ui_->FolderGroup->setTitle(text(kDataFolderText));
    ui_->Text1->setToolTip(text(kDataFolderTipText));
    ui_->Text1->setAccessibleName(text(kDataFolderTipText));
    ui_->Command3->setText(text(kBrowseText));
    ui_->ModeGroup->setTitle(text(kRunModeText));
    ui_->Option1->setText(text(kInstrumentChoiceText));
    ui_->Option2->setText(text(kSimulatedChoiceText));
    ui_->LanguageGroup->setTitle(text(kLanguageText));
    ui_->Option3->setText(Shown(SystemLanguageCaption(state_, parts_.texts)));
    ui_->Option4->setText(text(kEnglishText));
    ui_->Hint->setText(text(kLanguageHintText));
    ui_->Command1->setText(text(kOkText));
    ui_->Command2->setText(text(kCancelText));
}

void FrmOption::SetFonts()
{
    SetWindowFont(*this, parts_.texts);
    ui_->Text1->setMinimumWidth(QFontMetrics(font()).horizontalAdvance(u'0') * kPathDigits);
}

/// A language choice that a later version may know checks neither button, and stays unless one is chosen.
void FrmOption::ShowState()
{
    ui_->Text1->setText(Shown(state_.DefaultFolder));
    (state_.RunMode ? ui_->Option1 : ui_->Option2)->setChecked(true);
    ui_->Option3->setChecked(state_.LanguageMode == kOwnLanguageMode);
    ui_->Option4->setChecked(state_.LanguageMode == kEnglishMode);
}

void FrmOption::ConnectControls()
{
    connect(ui_->Text1, &QLineEdit::textEdited, this,
            [this](const QString& text) { state_.DefaultFolder = Typed(text); });
    connect(ui_->Option1, &QRadioButton::clicked, this, [this] { state_.RunMode = true; });
    connect(ui_->Option2, &QRadioButton::clicked, this, [this] { state_.RunMode = false; });
    connect(ui_->Option3, &QRadioButton::clicked, this, [this] { state_.LanguageMode = kOwnLanguageMode; });
    connect(ui_->Option4, &QRadioButton::clicked, this, [this] { state_.LanguageMode = kEnglishMode; });
    connect(ui_->Command1, &QPushButton::clicked, this, [this] { accept(); });
    connect(ui_->Command2, &QPushButton::clicked, this, [this] { reject(); });
    connect(ui_->Command3, &QPushButton::clicked, this, [this] { Command3Click(); });
}

void FrmOption::Command3Click()
{
    if (busy_)
        return;
    busy_ = true;
    ApplicationState& state = state_; // outlives the dialog, which may be gone when the chooser has closed
    state.ChooserMode = kChoosesDataFolder;
    const QPointer<QDialog> chooser =
        new FrmDriveList(state,
                         {parts_.drives, parts_.texts, parts_.tell,
                          [this](const std::string& folder) { ui_->Text1->setText(Shown(folder)); }},
                         this);
    const bool closed = RunModally(chooser);
    state.ChooserMode = 0;
    if (!closed) // it went with this dialog
        return;
    delete chooser;
    busy_ = false;
}

/// Every way out ends here: OK, Cancel, Escape, the close box.
void FrmOption::done(int result)
{
    if (busy_)
        return;
    const ScopedFlag busy(busy_);
    if (result != Accepted) {
        edit_.Restore();
    } else if (const std::optional<Message> refusal = edit_.Refusal(parts_.drives, parts_.texts)) {
        parts_.tell(*refusal);
        ui_->Text1->setFocus();
        ui_->Text1->selectAll();
        return;
    } else {
        for (const Message& message : edit_.Keep(parts_.files, parts_.settings, parts_.texts))
            parts_.tell(message);
    }
    QDialog::done(result);
}

} // namespace quorvane
