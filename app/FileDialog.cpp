#include "app/FileDialog.h"

#include "app/MessageBox.h"
#include "app/ProgramFont.h"
#include "app/QtText.h"
#include "files/SaveName.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QSplitter>
#include <QTreeView>
#include <QUrl>
#include <algorithm>
#include <vector>

namespace quorvane {
namespace {

QStringList Patterns(const FileFilter& filter)
{
    QStringList patterns;
    for (const std::string& pattern : filter.patterns)
        patterns += Shown(pattern);
    return patterns;
}

QString ExistingFolder(const std::string& folder)
{
    const QString path = Shown(folder);
    return !path.isEmpty() && QFileInfo(path).isDir() ? QDir(path).absolutePath() : QDir::homePath();
}

} // namespace

FileDialog::FileDialog(const Look& look, const Texts& texts, QWidget* parent)
    : QFileDialog(parent), texts_(texts), types_(nullptr)
{
    setOptions(DontUseNativeDialog | HideNameFilterDetails); // descriptions bring their patterns along
    setAcceptMode(look.mode);
    setFileMode(look.files);
    types_ = findChild<QComboBox*>(u"fileTypeCombo"_qs);
    SetFonts();
    SetCaptions(look);
    SetFolder(ExistingFolder(look.folder));
    SetFilters(look);
}

void FileDialog::SetCaptions(const Look& look)
{
    setWindowTitle(Shown(texts_[look.titleId]));
    setLabelText(LookIn, Shown(texts_[kLookInText]));
    setLabelText(FileName, Shown(texts_[kFileNameText]));
    setLabelText(FileType, Shown(texts_[kFilesOfTypeText]));
    setLabelText(Accept, Shown(texts_[look.acceptId]));
    setLabelText(Reject, Shown(texts_[kCancelText]));
}

// The toolkit makes its columns and its list of places too narrow for their usual contents.
void FileDialog::SetFonts()
{
    SetWindowFont(*this, texts_);
    const int column = fontMetrics().horizontalAdvance(u"0000-00-00 00:00:00"_qs);
    resize(column * 5, column * 3);
    if (auto* const list = findChild<QTreeView*>())
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    if (auto* const splitter = findChild<QSplitter*>())
        splitter->setSizes({column, column * 4});
}

void FileDialog::SetFolder(const QString& folder)
{
    QList<QUrl> places = {QUrl::fromLocalFile(QDir::homePath())};
    if (const QUrl start = QUrl::fromLocalFile(folder); !places.contains(start))
        places += start;
    setSidebarUrls(places);
    setDirectory(folder);
}

void FileDialog::SetFilters(const Look& look)
{
    const std::vector<FileFilter> filters = FileFilters(look.filter);
    if (filters.empty())
        return;
    QStringList names;
    for (const FileFilter& filter : filters)
        names += Shown(filter.description) + u" ("_qs + Patterns(filter).join(u' ') + u')';
    setNameFilters(names);
    selectNameFilter(names[std::clamp<qsizetype>(look.filterIndex - 1, 0, names.size() - 1)]);

    // The toolkit answers another choice of filter by giving the typed name that filter's extension:
    // "dust 1.5" would become "dust 1.CSV". Here the choice decides what is listed and leaves the name alone.
    auto* const files = findChild<QFileSystemModel*>();
    if (types_ == nullptr || files == nullptr)
        return;
    types_->disconnect(this);
    connect(types_, &QComboBox::activated, files, [files, filters](int index) {
        files->setNameFilters(Patterns(filters.at(static_cast<std::size_t>(index))));
    });
}

int FileDialog::ChosenFilter() const
{
    return types_ == nullptr ? 0 : types_->currentIndex() + 1;
}

void FileDialog::accept()
{
    const QStringList typed = TypedPaths();
    const bool isFolder = !typed.isEmpty() && QFileInfo(typed.first()).isDir();
    if (typed.isEmpty() || isFolder) {
        QFileDialog::accept(); // enters it
        return;
    }
    Consider(FinalPath(typed.first()));
}

void FileDialog::Take(const QString& path)
{
    chosen_ = QDir::toNativeSeparators(path);
    done(Accepted);
}

/// The toolkit takes what stands between quotation marks for a list of names, and what it has marked in its
/// list while ".." was typed for the choice.
QStringList FileDialog::TypedPaths() const
{
    const auto* const name = findChild<QLineEdit*>();
    const QString text = name != nullptr ? QDir::fromNativeSeparators(name->text()) : QString();
    const bool path = text.contains(u'/') && !text.startsWith(u'~');
    return path || text.contains(u'"') ? QStringList{directory().absoluteFilePath(text)} : selectedFiles();
}

void FileDialog::Refuse(int textId)
{
    ShowMessageBoxLater({.text = texts_[textId], .icon = Icon::Exclamation}, texts_, this);
}

} // namespace quorvane
