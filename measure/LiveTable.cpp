#include "measure/LiveTable.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMenu>
#include <QPaintEvent>
#include <QScrollBar>
#include <algorithm>

namespace quorvane {
namespace {

constexpr int kRowsInSight = 6;
constexpr int kNumberMargin = 6;

/// The numbers of the readings, always wide enough for the last one: the toolkit would measure the texts of
/// two hundred of them at each new reading.
class RowNumbers final : public QHeaderView {
public:
    explicit RowNumbers(QWidget* parent) : QHeaderView(Qt::Vertical, parent) { setSectionsClickable(true); }

    [[nodiscard]] QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(QStringLiteral("65500")) + 2 * kNumberMargin, 0};
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
