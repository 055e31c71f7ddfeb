#include "app/SaveDialog.h"

#include "app/MessageBox.h"
#include "app/QtText.h"
#include "files/SaveName.h"
#include "resources/OwnTexts.h"

#include <QDir>
#include <QFileInfo>
#include <utility>

namespace quorvane {

SaveDialog::SaveDialog(SaveQuestion question, const Texts& texts, QWidget* parent)
    : FileDialog({.titleId = kSaveAsText,
                  .acceptId = kSaveText,
                  .mode = AcceptSave,
                  .files = AnyFile,
                  .filter = question.filter,
                  .filterIndex = question.filterIndex,
                  .folder = question.folder},
                 texts, parent),
      question_(std::move(question))
{
    if (!question_.defaultName.empty())
        selectFile(Shown(question_.defaultName));
}

QString SaveDialog::FinalPath(const QString& typed) const
{
    if (!IsFilterChosen(question_.filterIndex))
        return typed;
    return Shown(WithExtension(Typed(typed), question_.extension));
}

bool SaveDialog::CanBeTaken(const QString& path)
{
    const QFileInfo file(path);
    if (!file.dir().exists()) {
        Refuse(kFileNotFoundText);
        return false;
    }
    if (file.isDir()) { // with its extension
        Refuse(kFileNotAFileText);
        return false;
    }
    // The toolkit would have asked about the name as typed, without its extension.
    if (!question_.overwritePrompt || !file.exists())
        return true;
    const Message question = {.text = FilledIn(ProgramTexts()[kReplaceFileText], Typed(file.fileName())),
                              .icon = Icon::Exclamation,
                              .buttons = Buttons::YesNo};
    return ShowMessageBox(question, ProgramTexts(), this, WayOut::EscapeIsNo) == Answer::Yes;
}

} // namespace quorvane
