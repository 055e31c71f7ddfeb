#include "stored/FolderTree.h"

#include <QDir>
#include <QEvent>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <utility>

namespace quorvane {
namespace {

/// Found out by making it and taking it away again: no list of letters tells what a file system takes.
bool CanBeNamed(const QDir& parent, const QString& name)
{
    if (name.contains(u'/') || name.contains(QDir::separator()))
        return false;
    return parent.mkdir(name) && parent.rmdir(name);
}

/// Names folders without the toolkit's own message about names that cannot be had.
class FolderModel final : public QFileSystemModel {
public:
    explicit FolderModel(QObject* parent) : QFileSystemModel(parent) {}

    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        const QString name = value.toString();
        if (name.isEmpty() || name == fileName(index))
            return false;
        if (CanBeNamed(QFileInfo(filePath(index)).dir(), name) &&
            QFileSystemModel::setData(index, value, role)) {
            named(index);
            return true;
        }
        refused();
        return false;
    }

    std::function<void(const QModelIndex&)> named;
    std::function<void()> refused;
};

} // namespace

FolderTree::FolderTree(QWidget* parent) : QTreeView(parent), model_(nullptr)
{
    auto* const model = new FolderModel(this);
    model->named = [this](const QModelIndex& index) { Report(index); };
    model->refused = [this] { nameRefused(); };
    model_ = model;
    model_->setFilter(QDir::AllDirs | QDir::Drives | QDir::NoDotAndDotDot);
    // A watched folder keeps a stick from being taken out, and news of it that are late would take away a
    // folder that has just got its name.
    model_->setOptions(QFileSystemModel::DontWatchForChanges | QFileSystemModel::DontUseCustomDirectoryIcons);
    model_->setReadOnly(false); // a new folder is named in its place
    model_->setRootPath(QString());
    setModel(model_);
    setEditTriggers(NoEditTriggers);
    setHeaderHidden(true);
    for (int column = 1; column < model_->columnCount(); ++column)
        hideColumn(column);
    // As wide as the tree, but long names scroll sideways instead of being cut off.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    // Folders come in and are sorted while the tree is on the screen already.
    connect(model_, &QFileSystemModel::directoryLoaded, this,
            [this](const QString& folder) { Loaded(folder); });
    connect(model_, &QAbstractItemModel::layoutChanged, this, [this] { Settle(); });
    connect(verticalScrollBar(), &QAbstractSlider::actionTriggered, this, [this] { settling_ = false; });
}

void FolderTree::Begin(const QString& folder)
{
    const QModelIndex index = model_->index(QDir::cleanPath(folder));
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    folder_ = model_->filePath(index);
    settling_ = true;
    Settle();
}

bool FolderTree::GoTo(const QString& folder)
{
    const QModelIndex index = model_->index(QDir::cleanPath(folder));
    if (!index.isValid())
        return false;
    setCurrentIndex(index);
    settling_ = true;
    Settle();
    return true;
}

void FolderTree::Settle()
{
    if (!settling_ || !currentIndex().isValid())
        return;
    expand(currentIndex());
    scrollTo(currentIndex(), PositionAtCenter);
}

void FolderTree::Loaded(const QString& folder)
{
    loaded_ += folder;
    Settle();
    if (folder == folder_ && !toBeMade_.isEmpty())
        MakeNow(std::exchange(toBeMade_, {}));
}

/// Not while the present folder is being read: a list that was made before would take the new one away.
void FolderTree::MakeFolder(const QString& name)
{
    const QModelIndex parent = model_->index(folder_);
    if (!parent.isValid() || loaded_.contains(folder_)) {
        MakeNow(name);
        return;
    }
    toBeMade_ = name;
    if (model_->canFetchMore(parent))
        model_->fetchMore(parent);
}

void FolderTree::MakeNow(const QString& name)
{
    QString free = name;
    for (int number = 2; QFileInfo::exists(QDir(folder_).filePath(free)); ++number)
        free = QStringLiteral("%1 (%2)").arg(name).arg(number);
    const QModelIndex parent = model_->index(folder_);
    const QModelIndex made = parent.isValid() ? model_->mkdir(parent, free) : QModelIndex();
    if (!made.isValid()) {
        notMade();
        return;
    }
    settling_ = false;
    setCurrentIndex(made);
    scrollTo(made);
    edit(made);
}

void FolderTree::Report(const QModelIndex& index)
{
    folder_ = model_->filePath(index);
    toBeMade_.clear();
    changed(folder_);
}

/// What is no longer chosen stays the folder until there is another one.
void FolderTree::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    if (!selected.isEmpty())
        Report(selected.indexes().constFirst());
}

/// Without this the toolkit goes to a neighbour of a folder that has vanished.
void FolderTree::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last)
{
    for (QModelIndex index = currentIndex(); index.isValid(); index = index.parent()) {
        if (index.parent() == parent && index.row() >= first && index.row() <= last) {
            selectionModel()->clear();
            break;
        }
    }
    QTreeView::rowsAboutToBeRemoved(parent, first, last);
}

bool FolderTree::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel)
        settling_ = false;
    if (event->type() == QEvent::Resize)
        header()->setMinimumSectionSize(viewport()->width());
    return QTreeView::viewportEvent(event);
}

void FolderTree::keyPressEvent(QKeyEvent* event)
{
    settling_ = false;
    QTreeView::keyPressEvent(event);
}

} // namespace quorvane
