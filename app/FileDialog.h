#pragma once

#include "app/Texts.h"

#include <QFileDialog>
#include <optional>
#include <string>

class QComboBox;

namespace quorvane {

/// Asks for a file's name. It is the toolkit's own dialog, not the system's: that one speaks the system's
/// language, which need not be the program's.
class FileDialog : public QFileDialog {
public:
    /// The accepted path as the system writes it; nothing before and after Cancel.
    [[nodiscard]] const std::optional<QString>& ChosenPath() const { return chosen_; }

protected:
    /// What dialogs differ in and the question says.
    struct Look {
        int titleId;
        int acceptId; ///< of the button
        AcceptMode mode;
        FileMode files;
        std::string filter; ///< as of a `SaveQuestion`
        int filterIndex;
        std::string folder;
    };
    FileDialog(const Look& look, const Texts& texts, QWidget* parent);

    /// The button, Enter and a double click. A folder is entered; a path that cannot be taken leads back to
    /// the dialog with everything as typed.
    void accept() final;

    /// The path that `typed` stands for.
    [[nodiscard]] virtual QString FinalPath(const QString& typed) const { return typed; }
    /// Takes a path that is no folder as typed, or tells or asks the operator what there is to tell. It must
    /// not wait for the answer: the dialog may be open while a run goes on.
    virtual void Consider(const QString& path) = 0;

    void Take(const QString& path);
    [[nodiscard]] int ChosenFilter() const; ///< from 1; 0 when it is not known
    [[nodiscard]] const Texts& ProgramTexts() const { return texts_; }
    void Refuse(int textId);

private:
    void SetFonts();
    void SetCaptions(const Look& look);
    void SetFolder(const QString& folder);
    void SetFilters(const Look& look);
    [[nodiscard]] QStringList TypedPaths() const;

    const Texts& texts_;
    QComboBox* types_; ///< the toolkit's; it knows its choice by place, the dialog only by a shortened text
    std::optional<QString> chosen_;
};

} // namespace quorvane
