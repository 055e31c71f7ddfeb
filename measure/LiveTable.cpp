#include "measure/LiveTable.h"

#include "measure/LiveTableModel.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

namespace quorvane {
namespace {

constexpr int kRowsInSight = 6;
constexpr int kNumberMargin = 6;
constexpr int kSignRoom = 8; ///< for the sign of a gap, before the number
constexpr int kGapLine = 3;  ///< thickness

/// The line of a gap along the upper edge of `row`: a thin one where no reading is missing.
void DrawGapLine(QPainter& painter, const QRect& row, int behind, const QPalette& palette)
{
    const int thickness = behind == kBehindLoss ? kGapLine : 1;
    painter.setPen(QPen(palette.text(), thickness, Qt::DashLine, Qt::FlatCap));
    painter.drawLine(row.left(), row.top() + thickness / 2, row.right(), row.top() + thickness / 2);
}

/// The numbers of the readings, always wide enough for the last one: the toolkit would measure the texts of
/// two hundred of them at each new reading.
class RowNumbers final : public QHeaderView {
public:
    explicit RowNumbers(QWidget* parent) : QHeaderView(Qt::Vertical, parent) { setSectionsClickable(true); }

    [[nodiscard]] QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(QStringLiteral("65500")) + 2 * kNumberMargin + kSignRoom, 0};
    }

protected:
    /// When the table has scrolled by a row, only the room below the newest number is to be painted. The
    /// toolkit finds no number there and paints all of them, so the newest one is put into what it sees.
    void paintEvent(QPaintEvent* event) override
    {
        const QRect newest(0, length() - offset() - defaultSectionSize(), width(), defaultSectionSize());
        QPaintEvent withNewest(event->region().united(newest));
        QHeaderView::paintEvent(event->rect().top() > newest.top() ? &withNewest : event);
    }
    void paintSection(QPainter* painter, const QRect& rect, int row) const override
    {
        painter->save(); // the toolkit leaves its pen
        QHeaderView::paintSection(painter, rect, row);
        painter->restore();
        const int behind = model()->headerData(row, Qt::Vertical, kBehindGapRole).toInt();
        if (behind == 0)
            return;
        painter->save();
        DrawGapLine(*painter, rect, behind, palette());
        painter->setPen(QPen(palette().text(), 2));
        if (behind == kBehindLoss) // two strokes, as where an axis is broken
            for (const int x : {rect.left() + 3, rect.left() + 8})
                painter->drawLine(x + 3, rect.center().y() - 3, x, rect.center().y() + 5);
        painter->restore();
    }
};

} // namespace

LiveTable::LiveTable(QWidget* parent) : QTableView(parent), copy_(new QAction(this))
{
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false); // Tab goes on to the next control
    // By pixels, because by rows the toolkit insists on the last row at the bottom of the view.
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalHeader(new RowNumbers(this));
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);

    copy_->setShortcut(QKeySequence::Copy);
    copy_->setShortcutContext(Qt::WidgetShortcut);
    addAction(copy_);
    connect(copy_, &QAction::triggered, this, [this] { CopySelection(); });
}

void LiveTable::SetFonts(const QFont& font)
{
    QFont known = font;
    known.setFamilies(QStringList{QStringLiteral("MS PGothic")} + font.families());
    setFont(known);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
}

void LiveTable::SetCopyText(const QString& text)
{
    copy_->setText(text);
}

void LiveTable::FitColumns()
{
    const int value = fontMetrics().horizontalAdvance(QStringLiteral(" 00000.0000 "));
    for (int column = 0; column < model()->columnCount(); ++column)
        setColumnWidth(column, std::max(value, horizontalHeader()->sectionSizeHint(column)));
}

void LiveTable::ShowNewest()
{
    if (model()->rowCount() <= kRowsInSight)
        return;
    updateGeometries(); // the toolkit does this later, and until then the new row is out of reach
    verticalScrollBar()->setValue(NewestTop());
}

QSize LiveTable::minimumSizeHint() const
{
    const int rows = kRowsInSight * verticalHeader()->defaultSectionSize();
    return {QTableView::minimumSizeHint().width(),
            horizontalHeader()->sizeHint().height() + rows + 2 * frameWidth()};
}

/// The toolkit's own menu of actions serves the events itself until it is closed, and so would hold up a
/// reading.
void LiveTable::contextMenuEvent(QContextMenuEvent* event)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(copy_);
    menu->popup(event->globalPos());
}

void LiveTable::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    const int rows = model() == nullptr ? 0 : model()->rowCount();
    const int first = rowAt(std::max(0, event->rect().top()));
    if (rows == 0 || first < 0)
        return;
    QPainter painter(viewport());
    const int right =
        columnViewportPosition(model()->columnCount() - 1) + columnWidth(model()->columnCount() - 1);
    for (int row = first; row < rows && rowViewportPosition(row) <= event->rect().bottom(); ++row)
        if (const int behind = model()->headerData(row, Qt::Vertical, kBehindGapRole).toInt(); behind != 0)
            DrawGapLine(painter, QRect(0, rowViewportPosition(row), right, rowHeight(row)), behind,
                        palette());
}

void LiveTable::updateGeometries()
{
    const int position = verticalScrollBar()->value();
    QTableView::updateGeometries();
    verticalScrollBar()->setMaximum(std::max(verticalScrollBar()->maximum(), NewestTop()));
    verticalScrollBar()->setValue(position);
}

int LiveTable::NewestTop() const
{
    const int rows = model() == nullptr ? 0 : model()->rowCount();
    return std::max(0, rows - kRowsInSight) * verticalHeader()->defaultSectionSize();
}

void LiveTable::CopySelection() const
{
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QString text;
    for (const QModelIndex& row : rows) {
        QStringList cells;
        for (int column = 0; column < model()->columnCount(); ++column)
            cells << row.siblingAtColumn(column).data().toString();
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    if (!text.isEmpty())
        QGuiApplication::clipboard()->setText(text);
}

} // namespace quorvane
