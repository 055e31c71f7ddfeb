#pragma once

#include "app/Texts.h"

#include <QTextDocument>
#include <QWidget>
#include <memory>

namespace Ui {
class FrmGuide;
}

namespace quorvane {

/// The window of the operator's guide: contents, find box, pages. Closing hides it; it keeps its size and its
/// place in the text.
class FrmGuide final : public QWidget {
public:
    explicit FrmGuide(const Texts& texts);
    ~FrmGuide() override;

    /// Captions, fonts and guide in the language that the texts have now.
    void Load();
    /// Goes to the chapter with this title, to the beginning when there is none.
    void GoTo(const QString& chapter);
    [[nodiscard]] bool HasChapter(const QString& title) const;

private:
    void SetFonts();
    void SetCaptions();
    void Connect();
    void SetShortcuts();
    void FillContents(const QUrl& place);
    void Find(QTextDocument::FindFlags direction = {});
    void ShowFound(bool found);

    const Texts& texts_;
    std::unique_ptr<Ui::FrmGuide> ui_;
    QUrl contentsOf_; ///< the file whose chapters are listed
};

} // namespace quorvane
