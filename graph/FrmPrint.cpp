#include "graph/FrmPrint.h"

#include "app/ProgramFont.h"
#include "app/ProgramIcon.h"
#include "app/QtText.h"
#include "graph/ui_FrmPrint.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QPointer>
#include <utility>

namespace quorvane {
namespace {

constexpr int kNameLetters = 36; ///< of a printer; a longer name is there all the same, as a tooltip
constexpr int kMaxCopies = 99;

int StateText(QPrinter::PrinterState state)
{
    switch (state) {
    case QPrinter::Idle:
        return kPrinterReadyText;
    case QPrinter::Active:
        return kPrinterBusyText;
    case QPrinter::Aborted:
    case QPrinter::Error:
        break;
    }
    return kPrinterFaultText;
}

} // namespace

FrmPrint::FrmPrint(Parts parts, QPageLayout::Orientation orientation, QWidget* parent)
    : QDialog(parent), parts_(std::move(parts)), names_(parts_.printers.Names()), ui_([this] {
          auto ui = std::make_unique<Ui::FrmPrint>();
          ui->setupUi(this);
          return ui;
      }())
{
    setWindowIcon(ProgramIcon());
    ui_->Spin1->setRange(1, kMaxCopies);
    ui_->Spin1->setContextMenuPolicy(Qt::NoContextMenu); // the toolkit's menu serves events itself
    (orientation == QPageLayout::Portrait ? ui_->Option1 : ui_->Option2)->setChecked(true);
    SetFonts();
    SetCaptions();
    ListPrinters();
    connect(ui_->Combo1, &QComboBox::currentIndexChanged, this, [this] { ShowPrinter(); });
    connect(ui_->Command1, &QPushButton::clicked, this, [this] { Command1Click(); });
    connect(ui_->Command2, &QPushButton::clicked, this, [this] { reject(); });
    ui_->Combo1->setFocus();
}

FrmPrint::~FrmPrint() = default;

void FrmPrint::SetFonts()
{
    SetWindowFont(*this, parts_.texts);
    ui_->Combo1->setMinimumContentsLength(kNameLetters);
}

void FrmPrint::SetCaptions()
{
    const auto text = [this](int id) { return Shown(parts_.texts[id]); };
    setWindowTitle(text(kPrintTitleText));
    ui_->Label1->setText(text(kPrinterText));
    ui_->Label2->setText(text(kPaperText));
    ui_->Label3->setText(text(kCopiesText));
    ui_->Label4->setText(text(kOrientationText));
    ui_->Option1->setText(text(kPortraitText));
    ui_->Option2->setText(text(kLandscapeText));
    ui_->Command1->setText(text(kPrintButtonText));
    ui_->Command2->setText(text(kCancelText));
}

/// The usual printer is chosen, else the first, else the file.
void FrmPrint::ListPrinters()
{
    ui_->Combo1->addItems(names_);
    ui_->Combo1->addItem(Shown(parts_.texts[kPrintToFileText]));
    ui_->Combo1->setCurrentIndex(qMax(0, static_cast<int>(names_.indexOf(parts_.printers.DefaultName()))));
    ShowPrinter();
}

void FrmPrint::ShowPrinter()
{
    const QString name = ChosenPrinter();
    const bool toFile = name.isEmpty();
    const PrinterFacts facts = toFile ? PrinterFacts() : parts_.printers.Facts(name);
    const int noPrinter = names_.isEmpty() ? kNoPrinterText : kPrintToFileHintText;
    ui_->State->setText(Shown(parts_.texts[toFile ? noPrinter : StateText(facts.state)]));
    ui_->Combo1->setToolTip(name);
    ui_->Spin1->setEnabled(!toFile);
    ui_->Label3->setEnabled(!toFile);

    papers_ = facts.papers.isEmpty() ? FilePapers() : facts.papers;
    ui_->Combo2->clear();
    for (const QPageSize& paper : papers_)
        ui_->Combo2->addItem(paper.name());
    ui_->Combo2->setCurrentIndex(qMax(0, static_cast<int>(papers_.indexOf(facts.usualPaper))));
}

QString FrmPrint::ChosenPrinter() const
{
    return names_.value(ui_->Combo1->currentIndex()); // the file is behind the last
}

PrintChoice FrmPrint::Choice() const
{
    return {.printer = ChosenPrinter(),
            .file = {},
            .paper = papers_.value(ui_->Combo2->currentIndex()),
            .orientation = ui_->Option1->isChecked() ? QPageLayout::Portrait : QPageLayout::Landscape,
            .copies = ui_->Spin1->value()};
}

void FrmPrint::Command1Click()
{
    const PrintChoice choice = Choice();
    if (!choice.printer.isEmpty())
        return Finish(choice);
    parts_.askFile([dialog = QPointer<FrmPrint>(this), choice](const std::string& path) {
        if (!dialog)
            return;
        PrintChoice toFile = choice;
        toFile.file = Shown(path);
        dialog->Finish(toFile);
    });
}

/// A driver may serve events while it prints, and the dialog be gone then.
void FrmPrint::Finish(const PrintChoice& choice)
{
    const auto print = parts_.print;
    accept();
    print(choice);
}

} // namespace quorvane
