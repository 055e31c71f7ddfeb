#include "stored/FrmDriveList.h"

#include "app/ProgramFont.h"
#include "app/ProgramIcon.h"
#include "app/QtText.h"
#include "app/ScopedFlag.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"
#include "stored/ui_FrmDriveList.h"

#include <QDir>
#include <utility>

namespace quorvane {
namespace {

constexpr int kTreeDigits = 48; ///< width and height of the tree at least
constexpr int kTreeLines = 16;

} // namespace

FrmDriveList::FrmDriveList(ApplicationState& state, Parts parts, QWidget* parent)
    : QDialog(parent),
      parts_(std::move(parts)),
      choice_(state, state, parts_.drives),
      drives_(parts_.drives.Drives()),
      ui_([this] {
          auto ui = std::make_unique<Ui::FrmDriveList>();
          ui->setupUi(this);
          return ui;
      }())
{
    setWindowIcon(ProgramIcon());
    SetFonts();
    SetCaptions();
    FillDrives();
    ConnectControls();
    Start();
    ui_->Dir1->setFocus();
}

FrmDriveList::~FrmDriveList() = default;

void FrmDriveList::SetCaptions()
{
    const auto text = [this](int id) { return Shown(parts_.texts[id]); };
    setWindowTitle(text(kFolderSetupText));
    ui_->Label1->setText(text(kDriveText));
    ui_->Label2->setText(text(kFoldersText));
    ui_->Label3->setText(text(kChosenFolderText));
    ui_->Dir1->setAccessibleName(text(kFolderTreeText));
    ui_->Command1->setText(text(kOkText));
    ui_->Command2->setText(text(kCancelText));
    ui_->Command3->setText(text(kNewFolderText));
}

void FrmDriveList::SetFonts()
{
    SetWindowFont(*this, parts_.texts);
    const QFontMetrics metrics(font());
    ui_->Dir1->setMinimumSize(metrics.horizontalAdvance(u'0') * kTreeDigits,
                              metrics.lineSpacing() * kTreeLines);
}

void FrmDriveList::FillDrives()
{
    for (const Drive& drive : drives_)
        ui_->Drive1->addItem(Caption(drive));
}

/// The toolkit knows neither what the home folder nor what the top of everything is called.
QString FrmDriveList::Caption(const Drive& drive) const
{
    const QString path = Shown(drive.path);
    QString name = Shown(drive.name);
    if (drive.path == parts_.drives.StartFolder())
        name = Shown(parts_.texts[kHomeFolderText]);
    else if (path == QDir::rootPath() && name.isEmpty())
        name = Shown(parts_.texts[kWholeComputerText]);
    return name.isEmpty() ? path : QStringLiteral("%1 [%2]").arg(path, name);
}

void FrmDriveList::ConnectControls()
{
    connect(ui_->Drive1, &QComboBox::activated, this, [this](int index) { Drive1Change(index); });
    ui_->Dir1->changed = [this](const QString& folder) { Dir1Change(folder); };
    // A box waits until the press of the mouse that took the focus out of the name is over.
    const auto tellLater = [this](int textId) {
        QMetaObject::invokeMethod(
            this, [this, textId] { Tell(textId); }, Qt::QueuedConnection);
    };
    ui_->Dir1->nameRefused = [tellLater] { tellLater(kFolderNameRefusedText); };
    ui_->Dir1->notMade = [tellLater] { tellLater(kFolderNotMadeText); };
    connect(ui_->Command1, &QPushButton::clicked, this, [this] { accept(); });
    connect(ui_->Command2, &QPushButton::clicked, this, [this] { reject(); });
    connect(ui_->Command3, &QPushButton::clicked, this,
            [this] { ui_->Dir1->MakeFolder(Shown(parts_.texts[kNewFolderNameText])); });
}

void FrmDriveList::Start()
{
    const std::optional<std::string> folder = choice_.Open();
    if (!folder || !ui_->Dir1->GoTo(Shown(*folder)))
        ui_->Dir1->Begin(Shown(parts_.drives.StartFolder()));
    ShowDrive();
}

/// Only another drive than that of the present folder is gone to.
void FrmDriveList::Drive1Change(int index)
{
    const auto chosen = static_cast<std::size_t>(index);
    const std::string& path = drives_.at(chosen).path;
    if (PresentDrive() != chosen && (!parts_.drives.CanRead(path) || !ui_->Dir1->GoTo(Shown(path))))
        Tell(kDriveNotInUseText);
    ShowDrive();
}

void FrmDriveList::Dir1Change(const QString& folder)
{
    const QString path = QDir::toNativeSeparators(folder);
    if (choice_.DirectoryChanged(Typed(path)))
        ui_->Text1->setText(path);
    ShowDrive();
}

std::optional<std::size_t> FrmDriveList::PresentDrive() const
{
    return DriveOf(Typed(QDir::toNativeSeparators(ui_->Dir1->Folder())), drives_);
}

void FrmDriveList::ShowDrive()
{
    const std::optional<std::size_t> drive = PresentDrive();
    ui_->Drive1->setCurrentIndex(drive ? static_cast<int>(*drive) : -1);
}

void FrmDriveList::Tell(int textId)
{
    const ScopedFlag telling(telling_);
    parts_.tell({.text = parts_.texts[textId], .icon = Icon::Exclamation});
}

/// Every way out ends here: OK, Cancel, Escape, the close box.
void FrmDriveList::done(int result)
{
    if (telling_)
        return;
    if (const auto folder = result == Accepted ? choice_.Accept() : choice_.Cancel())
        parts_.showFolder(*folder);
    QDialog::done(result);
}

} // namespace quorvane
