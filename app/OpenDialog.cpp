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

void OpenDialog::Consider(const QString& path)
{
    if (QFileInfo::exists(path))
        Take(path);
    else
        Refuse(kFileNotFoundText);
}

} // namespace quorvane
