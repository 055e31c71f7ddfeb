#include "measure/LiveTableModel.h"

#include "app/QtText.h"
#include "measure/Gaps.h"
#include "measure/ReadingText.h"

#include <utility>

namespace quorvane {

LiveTableModel::LiveTableModel(const MeasurementArrays& arrays, QObject* parent)
    : QAbstractTableModel(parent), arrays_(arrays)
{
}

void LiveTableModel::SetHeadings(const QStringList& headings)
{
    headings_ = headings;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, kReadingColumns - 1);
}

void LiveTableModel::SetDecimalSign(std::string sign)
{
    decimalSign_ = std::move(sign);
}

void LiveTableModel::Reset(int count)
{
    beginResetModel();
    rows_ = count;
    endResetModel();
}

void LiveTableModel::Add(int sample)
{
    if (sample <= rows_)
        return;
    beginInsertRows({}, rows_, sample - 1);
    rows_ = sample;
    endInsertRows();
}

int LiveTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_;
}

int LiveTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kReadingColumns;
}

QVariant LiveTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rows_)
        return {};
    const auto column = static_cast<ReadingColumn>(index.column());
    if (role == Qt::DisplayRole)
        return Shown(ReadingText(arrays_, index.row() + 1, column, decimalSign_));
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(column == ReadingColumn::Time ? Qt::AlignCenter
                                                                 : Qt::AlignRight | Qt::AlignVCenter);
    return GapsAbove(index.row(), role);
}

QVariant LiveTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return orientation == Qt::Vertical ? GapsAbove(section, role) : QVariant();
    return orientation == Qt::Horizontal ? QVariant(headings_.value(section)) : QVariant(section + 1);
}

QVariant LiveTableModel::GapsAbove(int row, int role) const
{
    const bool tells = role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole;
    if (row >= rows_ || (!tells && role != kBehindGapRole))
        return {};
    const auto gaps = GapsBefore(arrays_, row + 1);
    if (gaps.empty())
        return {};
    if (!tells)
        return std::ranges::any_of(gaps, LosesReadings, &RunGap::kind) ? kBehindLoss : kBehindSetClock;
    QStringList texts;
    for (const RunGap& gap : gaps)
        texts += gapText_ ? gapText_(gap) : QString();
    return texts.join(u'\n');
}

} // namespace quorvane
