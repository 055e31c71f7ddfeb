#pragma once

#include "app/Prompts.h"
#include "app/Texts.h"

#include <QFileDialog>
#include <optional>
#include <string>

class QComboBox;

namespace quorvane {

/// Asks where to save. It is the toolkit's own dialog, not the system's: that one speaks the system's
/// language, which need not be the program's.
class SaveDialog final : public QFileDialog {
public:
    SaveDialog(SaveQuestion question, const Texts& texts, QWidget* parent);

    /// The accepted path as the system writes it, its extension added; nothing before and after Cancel.
    [[nodiscard]] const std::optional<QString>& ChosenPath() const { return chosen_; }

protected:
    /// Save, Enter and a double click. A folder is entered; a path that cannot be taken, or a file that the
    /// operator does not want to replace, leads back to the dialog with everything as typed.
    void accept() override;

private:
    void Translate();
    void GiveRoom();
    void SetFolder(const QString& folder);
    void SetFilters();
    [[nodiscard]] QStringList TypedPaths() const;
    [[nodiscard]] QString FinalPath(const QString& typed) const;
    [[nodiscard]] bool CanBeTaken(const QString& path);
    void Refuse(int textId);

    const SaveQuestion question_;
    const Texts& texts_;
    QComboBox* types_; ///< the toolkit's; it knows its choice by place, the dialog only by a shortened text
    std::optional<QString> chosen_;
};

} // namespace quorvane
