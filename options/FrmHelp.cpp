#include "options/FrmHelp.h"

#include "app/ProgramFont.h"
#include "app/ProgramIcon.h"
#include "app/QtText.h"
#include "graph/ChartWidget.h"
#include "options/ui_FrmHelp.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QAccessible>
#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QSysInfo>
#include <QUrl>

namespace quorvane {
namespace {

constexpr int kIconSize = 64;
constexpr double kNameFactor = 1.6;
constexpr int kPathLetters = 48; ///< a longer path is there all the same, and scrolls

AboutSurroundings Surroundings()
{
    const QString system =
        QStringLiteral("%1, %2 %3")
            .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion());
    return {.libraries = {{"Qt", qVersion(), "LGPL-3.0-only"},
                          {"QCustomPlot", PlotLibraryVersion(), "GPL-3.0-or-later"}},
            .system = Typed(system)};
}

} // namespace

FrmHelp::FrmHelp(const ApplicationState& state, const Texts& texts, QWidget* parent)
    : QDialog(parent), state_(state), texts_(texts), ui_([this] {
          auto ui = std::make_unique<Ui::FrmHelp>();
          ui->setupUi(this);
          return ui;
      }())
{
    const QIcon icon = ProgramIcon();
    setWindowIcon(icon);
    ui_->Image1->setPixmap(icon.pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    SetFonts();
    SetCaptions();
    for (QLabel* const label : {ui_->Label1, ui_->Label2})
        label->installEventFilter(this);
    Refresh();
    ui_->Command1->setFocus();
    connect(ui_->Command1, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->Command2, &QPushButton::clicked, this, &FrmHelp::OpenFolder);
    connect(ui_->Command3, &QPushButton::clicked, this, &FrmHelp::CopyDetails);
}

FrmHelp::~FrmHelp() = default;

void FrmHelp::SetFonts()
{
    SetWindowFont(*this, texts_);
    QFont large = Enlarged(font(), kNameFactor);
    large.setBold(true);
    ui_->Label1->setFont(large);
    ui_->Text1->setMinimumWidth(fontMetrics().averageCharWidth() * kPathLetters);
}

void FrmHelp::SetCaptions()
{
    const auto text = [this](int id) { return Shown(texts_[id]); };
    setWindowTitle(Shown(FilledIn(texts_[kAboutTitleText], texts_[kProgramNameText])));
    ui_->Label1->setText(text(kProgramNameText));
    ui_->Label2->setText(text(kLicenceText));
    ui_->Label3->setText(text(kProgramFilesText));
    ui_->Text1->setAccessibleName(text(kProgramFilesText));
    ui_->Command1->setText(text(kCloseText));
    ui_->Command2->setText(text(kOpenFolderText));
    ui_->Command3->setText(text(kCopyDetailsText));
}

void FrmHelp::Refresh()
{
    rows_ = AboutRows(state_, texts_, Surroundings());
    ui_->Notice->clear(); // what it says is on the clipboard are the facts of before
    qDeleteAll(facts_);
    facts_.clear();
    ShowRows();
}

/// The last row, the folder, has a box of its own, in a row of the form that is below all these: it may be
/// long.
void FrmHelp::ShowRows()
{
    int line = 0;
    for (const AboutRow& row : rows_) {
        if (&row == &rows_.back())
            break;
        int column = 0;
        for (const std::string& text : {row.caption, row.value}) {
            auto* const label = new QLabel(this);
            label->setTextFormat(Qt::PlainText);
            label->setText(Shown(text));
            if (column == 1) {
                label->setObjectName(u"Fact"_qs);
                label->setTextInteractionFlags(Qt::TextSelectableByMouse);
                label->installEventFilter(this);
            }
            facts_ += label;
            ui_->FactLayout->addWidget(label, line, column++);
        }
        ++line;
    }
    ui_->Text1->setText(Shown(rows_.back().value));
    ui_->Text1->setCursorPosition(0);
}

/// A selected text that is dragged is dropped by a loop of events of the toolkit's own, which would hold up a
/// run. The press that would begin it takes the selection away instead.
bool FrmHelp::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        static_cast<QLabel*>(object)->setSelection(0, 0);
    return QDialog::eventFilter(object, event);
}

void FrmHelp::OpenFolder()
{
    const bool opened = QDesktopServices::openUrl(QUrl::fromLocalFile(ui_->Text1->text()));
    ui_->Notice->clear();
    if (!opened)
        Tell(kFolderNotOpenedText);
}

void FrmHelp::CopyDetails()
{
    QGuiApplication::clipboard()->setText(Shown(MailText(rows_)));
    Tell(kCopiedText);
}

/// In a line of the dialog: a message box would have to be answered.
void FrmHelp::Tell(int id)
{
    ui_->Notice->setText(Shown(texts_[id]));
    QAccessibleEvent alert(ui_->Notice, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace quorvane
