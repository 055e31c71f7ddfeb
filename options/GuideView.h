#pragma once

#include "resources/StringTable.h"

#include <QList>
#include <QTextBrowser>

class QTextTable;

namespace quorvane {

class GuidePictures;

struct GuideChapter {
    int level = 2; ///< of its heading, 2 or 3
    QString title;
    QUrl place;
};

/// The pages of the operator's guide: the built-in Markdown files with their pictures, in the program's fonts
/// and the desktop's colours, in lines that are not too long to read. Links lead to other chapters, with a
/// way back.
class GuideView final : public QTextBrowser {
public:
    explicit GuideView(QWidget* parent = nullptr);

    /// Shows the guide in `language`, or in English when it does not exist in that, from its beginning. The
    /// one that is shown already stays as it is.
    void ShowGuide(TableLanguage language);
    /// The file that is shown.
    [[nodiscard]] QUrl File() const { return file_; }
    /// The chapters of what is shown, in its order.
    [[nodiscard]] const QList<GuideChapter>& Chapters() const { return chapters_; }
    /// Goes to the chapter with this title, to the beginning when there is none.
    void GoTo(const QString& title);
    /// @return the chapter with this title, compared without case and the blanks around it, or none
    [[nodiscard]] const GuideChapter* ChapterOf(const QString& title) const;
    /// Selects the next place with `text`, or the one before, and starts anew at the other end behind the
    /// last one. @return false when there is none; the selection stays then
    bool Find(const QString& text, QTextDocument::FindFlags direction);

    void SetTextFont(const QFont& font);
    /// Larger letters by so many steps, or smaller ones, within reason.
    void Zoom(int steps);
    void ZoomBack() { Zoom(-zoom_); }

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void Prepare();
    void NameHeadings();
    void SetDistances();
    void SetColours();
    void SetTableColours(QTextTable& table);
    void Fit(const QFont& font);

    GuidePictures* pictures_;
    QList<GuideChapter> chapters_;
    QUrl file_;
    QFont font_;
    int zoom_ = 0;
    int turned_ = 0;      ///< of the wheel, beyond whole steps
    bool loaded_ = false; ///< since it was prepared last
};

} // namespace quorvane
