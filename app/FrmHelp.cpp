#include "app/FrmHelp.h"

#include "app/ProgramIcon.h"
#include "app/ProgramVersion.h"
#include "app/QtText.h"
#include "app/ui_FrmHelp.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

namespace quorvane {
namespace {

constexpr int kIconSize = 64;
constexpr double kNameFactor = 1.6;
constexpr int kPathLetters = 48; ///< a longer path is there all the same, and scrolls

} // namespace

FrmHelp::FrmHelp(const ApplicationState& state, const Texts& texts, QWidget* parent)
    : QDialog(parent), ui_([this] {
          auto ui = std::make_unique<Ui::FrmHelp>();
          ui->setupUi(this);
          return ui;
      }())
{
    ShowProgram(texts);
    ShowPlace(state, texts);
    ui_->Command1->setText(Shown(texts[kCloseText]));
    ui_->Command1->setFocus();
    connect(ui_->Command1, &QPushButton::clicked, this, &QDialog::accept);
}

FrmHelp::~FrmHelp() = default;

void FrmHelp::ShowProgram(const Texts& texts)
{
    const std::string name = texts[kProgramNameText];
    setWindowTitle(Shown(FilledIn(texts[kAboutTitleText], name)));
    const QIcon icon = ProgramIcon();
    setWindowIcon(icon);
    ui_->Image1->setPixmap(icon.pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    ui_->Label1->setText(Shown(name));
    QFont font = ui_->Label1->font();
    font.setPointSizeF(font.pointSizeF() * kNameFactor);
    font.setBold(true);
    ui_->Label1->setFont(font);
    ui_->Label2->setText(Shown(FilledIn(texts[kVersionText], VersionNumber(kProgramVersion))));
    ui_->Label3->setText(Shown(texts[kLicenceText]));
}

void FrmHelp::ShowPlace(const ApplicationState& state, const Texts& texts)
{
    ui_->Label4->setText(Shown(texts[kToolkitText]));
    ui_->Label5->setText(QStringLiteral("Qt %1").arg(QLatin1String(qVersion())));
    ui_->Label6->setText(Shown(texts[kProcessorText]));
    ui_->Label7->setText(Shown(state.CpuName.empty() ? texts[kUnknownText] : state.CpuName));
    ui_->Label8->setText(Shown(texts[kProgramFilesText]));
    ui_->Text1->setText(Shown(state.AppPath));
    ui_->Text1->setCursorPosition(0);
    ui_->Text1->setMinimumWidth(fontMetrics().averageCharWidth() * kPathLetters);
    ui_->Text1->setAccessibleName(ui_->Label8->text());
}

} // namespace quorvane
