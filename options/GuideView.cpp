#include "options/GuideView.h"

#include "app/ProgramFont.h"
#include "options/GuidePictures.h"
#include "options/GuideText.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFontInfo>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>
#include <algorithm>
#include <cmath>

namespace quorvane {
namespace {

constexpr double kZoomStep = 1.1;
constexpr int kLeastZoom = -4;
constexpr int kMostZoom = 10;
constexpr int kLongestLine = 48;    ///< widths of a square letter; some 95 Latin ones
constexpr double kLineHeight = 125; ///< percent
constexpr double kDocumentMargin = 16;
constexpr double kGap = 14; ///< above headings, around tables, below pictures
constexpr double kCellPadding = 5;
constexpr int kRoomAboveHeading = 8; ///< on the screen, when it was gone to

/// The Markdown file of the guide; all its neighbours are built in as well.
QUrl GuideFile(TableLanguage language)
{
    if (language == TableLanguage::Japanese && QFile::exists(u":/guide/operator-guide.ja.md"_qs))
        return QUrl(u"qrc:/guide/operator-guide.ja.md"_qs);
    return QUrl(u"qrc:/guide/operator-guide.md"_qs);
}

/// Runs of letters with one format, as cursors: they stay where they are while formats change.
QList<QTextCursor> RunsOf(const QTextBlock& block)
{
    QList<QTextCursor> runs;
    for (auto run = block.begin(); !run.atEnd(); ++run) {
        QTextCursor cursor(block);
        cursor.setPosition(run.fragment().position());
        cursor.setPosition(run.fragment().position() + run.fragment().length(), QTextCursor::KeepAnchor);
        runs += cursor;
    }
    return runs;
}

bool HasPicture(const QTextBlock& block)
{
    return block.text().contains(QChar::ObjectReplacementCharacter);
}

} // namespace

GuideView::GuideView(QWidget* parent) : QTextBrowser(parent), pictures_(new GuidePictures(this))
{
    document()->documentLayout()->registerHandler(QTextFormat::ImageObject, pictures_);
    document()->setDocumentMargin(kDocumentMargin);
    document()->setUndoRedoEnabled(false);
    setOpenExternalLinks(true);
    setLineWrapMode(QTextEdit::FixedPixelWidth);
    verticalScrollBar()->setContextMenuPolicy(Qt::NoContextMenu); // it serves events until it is answered
    horizontalScrollBar()->setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& url) {
        if (loaded_)
            Prepare();
        if (url.hasFragment())
            verticalScrollBar()->setValue(verticalScrollBar()->value() - kRoomAboveHeading);
    });
}

void GuideView::ShowGuide(TableLanguage language)
{
    const QUrl file = GuideFile(language);
    if (file == file_)
        return;
    file_ = file;
    setSource(file);
    clearHistory();
}

QVariant GuideView::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::MarkdownResource)
        return QTextBrowser::loadResource(type, name);
    QFile file(u':' + name.path());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    loaded_ = true;
    return WithoutBreaksInSentences(QString::fromUtf8(file.readAll()));
}

// ---- what the toolkit's import leaves to be done ----------------------------------------------------------

void GuideView::Prepare()
{
    loaded_ = false;
    const QSignalBlocker unmodified(document()); // or the next jump would load it again
    QTextCursor all(document());
    all.beginEditBlock(); // laid out once, not for each change
    NameHeadings();
    SetDistances();
    SetColours();
    all.endEditBlock();
    Fit(font());
}

void GuideView::NameHeadings()
{
    chapters_.clear();
    QHash<QString, int> seen;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level == 0)
            continue;
        QString anchor = HeadingAnchor(block.text());
        if (const int before = seen[anchor]++; before > 0)
            anchor += u'-' + QString::number(before);
        QTextCharFormat named;
        named.setAnchor(true);
        named.setAnchorNames({anchor});
        for (QTextCursor& run : RunsOf(block))
            run.mergeCharFormat(named);
        QUrl place = file_;
        place.setFragment(anchor);
        if (level == 2 || level == 3)
            chapters_ += {level, block.text(), place};
    }
}

void GuideView::SetDistances()
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        QTextBlockFormat format;
        if (HasPicture(block)) // whose line would become higher than the picture
            format.setBottomMargin(kGap);
        else
            format.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
        if (block.blockFormat().headingLevel() > 1)
            format.setTopMargin(kGap);
        cursor.mergeBlockFormat(format);
        for (QTextCursor& run : RunsOf(block)) { // program text has a size of its own, which would not zoom
            QTextCharFormat letters = run.charFormat();
            letters.clearProperty(QTextFormat::FontPointSize);
            letters.clearProperty(QTextFormat::FontPixelSize);
            run.setCharFormat(letters);
        }
    }
}

/// The import takes the colours of its time; the desktop may change them.
void GuideView::SetColours()
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        for (QTextCursor& run : RunsOf(block)) {
            QTextCharFormat letters = run.charFormat();
            if (letters.anchorHref().isEmpty())
                continue;
            letters.setForeground(palette().link());
            run.setCharFormat(letters);
        }
    for (QTextFrame* const frame : document()->rootFrame()->childFrames())
        if (auto* const table = qobject_cast<QTextTable*>(frame))
            SetTableColours(*table);
}

void GuideView::SetTableColours(QTextTable& table)
{
    QTextTableFormat format = table.format();
    format.setBorder(1);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(palette().mid());
    format.setCellPadding(kCellPadding);
    format.setCellSpacing(0);
    format.setTopMargin(kGap);
    format.setBottomMargin(kGap);
    table.setFormat(format);
    for (int column = 0; column < table.columns(); ++column) {
        QTextTableCell cell = table.cellAt(0, column);
        QTextCharFormat head = cell.format();
        head.setBackground(palette().alternateBase());
        cell.setFormat(head);
    }
}

// ---- sizes ----------------------------------------------------------------------------------------------

void GuideView::SetTextFont(const QFont& font)
{
    font_ = font;
    Zoom(0);
}

void GuideView::Zoom(int steps)
{
    zoom_ = std::clamp(zoom_ + steps, kLeastZoom, kMostZoom);
    Fit(Enlarged(font_, std::pow(kZoomStep, zoom_)));
}

/// What is read stays where it is on the screen when the lines break elsewhere.
void GuideView::Fit(const QFont& font)
{
    const QTextCursor read = cursorForPosition({0, 0});
    const int place = cursorRect(read).top();
    setFont(font);
    pictures_->SetRoom(viewport()->width(), devicePixelRatioF());
    document()->markContentsDirty(0, document()->characterCount()); // pictures, too, are to be measured anew
    setLineWrapColumnOrWidth(std::min(viewport()->width(), kLongestLine * QFontInfo(font).pixelSize()));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(read).top() - place);
}

void GuideView::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    if (event->oldSize().width() != event->size().width())
        Fit(font());
}

void GuideView::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        SetColours();
}

void GuideView::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        return QTextBrowser::wheelEvent(event);
    turned_ += event->angleDelta().y(); // a touchpad tells of parts of a step
    if (const int steps = turned_ / QWheelEvent::DefaultDeltasPerStep; steps != 0)
        Zoom(steps);
    turned_ %= QWheelEvent::DefaultDeltasPerStep;
    event->accept();
}

// ---- moving about ---------------------------------------------------------------------------------------

void GuideView::GoTo(const QString& title)
{
    const GuideChapter* const chapter = ChapterOf(title);
    setSource(chapter != nullptr ? chapter->place : file_);
}

const GuideChapter* GuideView::ChapterOf(const QString& title) const
{
    const auto found =
        std::ranges::find_if(chapters_, [sought = title.trimmed()](const GuideChapter& chapter) {
            return chapter.title.compare(sought, Qt::CaseInsensitive) == 0;
        });
    return found != chapters_.end() ? &*found : nullptr;
}

bool GuideView::Find(const QString& text, QTextDocument::FindFlags direction)
{
    const bool backward = direction.testFlag(QTextDocument::FindBackward);
    QTextCursor found = document()->find(text, textCursor(), direction);
    if (found.isNull())
        found = document()->find(text, backward ? document()->characterCount() - 1 : 0, direction);
    if (found.isNull())
        return false;
    setTextCursor(found);
    return true;
}

/// A selected text that is dragged is dropped by a loop of events of the toolkit's own, which would hold up a
/// run. The press that would begin it takes the selection away instead.
void GuideView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && textCursor().hasSelection())
        setTextCursor(cursorForPosition(event->position().toPoint()));
    QTextBrowser::mousePressEvent(event);
}

} // namespace quorvane
