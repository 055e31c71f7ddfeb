#pragma once

#include <QSet>
#include <QString>
#include <QTreeView>
#include <functional>

class QFileSystemModel;

namespace quorvane {

/// The computer's folders as a tree. Each is read once, in the background; what is found, or missed, there
/// never changes the folder that was gone to. Paths are in the toolkit's form, with "/".
class FolderTree final : public QTreeView {
public:
    explicit FolderTree(QWidget* parent = nullptr);

    /// The operator has gone to a folder, `GoTo` has, or the folder that was gone to has a new name.
    std::function<void(const QString& folder)> changed;
    /// A name that was given to a new folder cannot be had; the folder keeps the one it has. It may be called
    /// in the midst of a change of the focus.
    std::function<void()> nameRefused;
    /// No folder can be made in the present one.
    std::function<void()> notMade;

    /// Shows where `folder` is and leaves it at that: nothing is chosen.
    void Begin(const QString& folder);
    /// Goes to `folder` as the operator does. @return false when the tree has no such folder
    [[nodiscard]] bool GoTo(const QString& folder);
    /// The folder that was gone to, or the one it began at.
    [[nodiscard]] QString Folder() const { return folder_; }
    /// Makes a folder in the present one, goes there and lets the operator name it; as soon as the present
    /// one has come in.
    /// @param name  until then; a number follows when it is taken
    void MakeFolder(const QString& name);

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Settle();
    void Loaded(const QString& folder);
    void MakeNow(const QString& name);
    void Report(const QModelIndex& index);

    QFileSystemModel* model_;
    QString folder_;
    QSet<QString> loaded_;
    QString toBeMade_;      ///< name of the folder that is made when the present one has come in; else empty
    bool settling_ = false; ///< until the operator takes hold of it, the folder is kept in sight
};

} // namespace quorvane
