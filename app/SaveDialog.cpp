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
    const auto kind = static_cast<std::size_t>(ChosenFilter()) - 1; // none is beyond the last
    return kind < question_.extensions.size() ? Shown(WithExtension(Typed(typed), question_.extensions[kind]))
                                              : typed;
}

void SaveDialog::Consider(const QString& path)
{
    const QFileInfo file(path);
    if (!file.dir().exists())
        return Refuse(kFileNotFoundText);
    if (file.isDir()) // with its extension
        return Refuse(kFileNotAFileText);
    // The toolkit would have asked about the name as typed, without its extension.
    if (!question_.overwritePrompt || !file.exists())
        return Take(path);
    const Message question = {.text = FilledIn(ProgramTexts()[kReplaceFileText], Typed(file.fileName())),
                              .icon = Icon::Exclamation,
                              .buttons = Buttons::YesNo};
    const auto answered = [this, path](Answer answer) {
        if (answer == Answer::Yes)
            Take(path);
    };
    ShowMessageBoxLater(question, ProgramTexts(), this, answered, WayOut::EscapeIsNo);
}

} // namespace quorvane
