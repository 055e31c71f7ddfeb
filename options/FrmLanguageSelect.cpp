#include "options/FrmLanguageSelect.h"

#include "app/LanguageOffset.h"
#include "app/ProgramFont.h"
#include "app/ProgramIcon.h"
#include "app/QtText.h"
#include "app/ScopedFlag.h"
#include "options/ui_FrmLanguageSelect.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QShortcut>
#include <utility>

namespace quorvane {
namespace {

constexpr int kWidthDigits = 32; ///< at least, or the window's title is cut off

} // namespace

FrmLanguageSelect::FrmLanguageSelect(ApplicationState& state, Parts parts, QWidget* parent)
    : QDialog(parent), state_(state), parts_(std::move(parts)), edit_(state), ui_([this] {
          auto ui = std::make_unique<Ui::FrmLanguageSelect>();
          ui->setupUi(this);
          return ui;
      }())
{
    setWindowIcon(ProgramIcon());
    SetFonts();
    SetCaptions();
    ui_->Option1->setChecked(state_.LanguageMode == kEnglishMode);
    ui_->Option2->setChecked(state_.LanguageMode == kOwnLanguageMode);
    (ui_->Option2->isChecked() ? ui_->Option2 : ui_->Option1)->setFocus();
    ConnectControls();
}

FrmLanguageSelect::~FrmLanguageSelect() = default;

void FrmLanguageSelect::SetCaptions()
{
    const auto text = [this](int id) { return Shown(parts_.texts[id]); };
    setWindowTitle(text(kLanguageSelectText));
    ui_->Label1->setText(text(kChooseLanguageText));
    ui_->Option1->setText(text(kEnglishText));
    ui_->Option2->setText(text(kJapaneseText));
    ui_->Option3->setText(text(kChineseText)); // meant: there are no Chinese texts, and it is never shown
    const bool japanese = TableLanguageFor(state_.SystemLanguageName) == TableLanguage::Japanese;
    ui_->Hint->setText(text(japanese ? kWhichIsEnglishText : kJapaneseOnlyText));
    ui_->Command1->setText(text(kOkText));
}

void FrmLanguageSelect::SetFonts()
{
    SetWindowFont(*this, parts_.texts);
    ui_->Label1->setMinimumWidth(QFontMetrics(font()).horizontalAdvance(u'0') * kWidthDigits);
}

void FrmLanguageSelect::ConnectControls()
{
    connect(ui_->Option1, &QRadioButton::clicked, this, [this] { state_.LanguageMode = kEnglishMode; });
    connect(ui_->Option2, &QRadioButton::clicked, this, [this] { state_.LanguageMode = kOwnLanguageMode; });
    connect(ui_->Command1, &QPushButton::clicked, this, [this] { accept(); });
    // The first letters of their English names, whatever language the captions are in.
    const std::pair<Qt::Key, QRadioButton*> letters[] = {{Qt::Key_E, ui_->Option1},
                                                         {Qt::Key_J, ui_->Option2}};
    for (const auto& [letter, option] : letters)
        connect(new QShortcut(letter, this), &QShortcut::activated, option, [option = option] {
            option->setFocus();
            option->click();
        });
}

/// Every way out ends here: OK, Escape, the close box.
void FrmLanguageSelect::done(int result)
{
    if (telling_)
        return;
    if (result != Accepted) {
        edit_.Restore();
    } else if (const auto failure = edit_.Save(parts_.files, state_.AppPath, parts_.texts)) {
        const ScopedFlag telling(telling_);
        parts_.tell(*failure);
    }
    QDialog::done(result);
}

} // namespace quorvane
