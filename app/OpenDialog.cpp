#include "app/OpenDialog.h"

#include "resources/OwnTexts.h"

#include <QFileInfo>

namespace quorvane {

OpenDialog::OpenDialog(const OpenQuestion& question, const Texts& texts, QWidget* parent)
    : FileDialog({.titleId = kOpenTitleText,
                  .acceptId = kOpenText,
                  .mode = AcceptOpen,
                  .files = ExistingFile,
                  .filter = question.filter,
                  .filterIndex = question.filterIndex,
                  .folder = question.folder},
                 texts, parent)
{
}

bool OpenDialog::CanBeTaken(const QString& path)
{
    const bool exists = QFileInfo::exists(path);
    if (!exists)
        Refuse(kFileNotFoundText);
    return exists;
}

} // namespace quorvane
