#pragma once

#include "measure/MeasurementArrays.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <functional>
#include <string>
#include <utility>

namespace quorvane {

/// Of a row's heading: whether its reading came behind a gap.
inline constexpr int kBehindGapRole = Qt::UserRole;
// Its values; none where a reading is behind no gap.
inline constexpr int kBehindSetClock = 1; ///< no reading is missing
inline constexpr int kBehindLoss = 2;

/// The live table's rows, read from the measurement arrays when they are painted: a reading costs the same at
/// row 65,500 as at row 1.
class LiveTableModel final : public QAbstractTableModel {
public:
    explicit LiveTableModel(const MeasurementArrays& arrays, QObject* parent = nullptr);

    void SetHeadings(const QStringList& headings);
    void SetDecimalSign(std::string sign);
    /// `text` tells what a gap was: tooltip and description of the row behind it.
    void SetGapText(std::function<QString(const RunGap&)> text) { gapText_ = std::move(text); }
    /// Shows readings 1 to `count` from now on; the arrays may have changed entirely.
    void Reset(int count);
    /// Reading `sample` has come; those before it are unchanged.
    void Add(int sample);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] QVariant GapsAbove(int row, int role) const;

    const MeasurementArrays& arrays_;
    QStringList headings_;
    std::function<QString(const RunGap&)> gapText_;
    std::string decimalSign_ = ".";
    int rows_ = 0;
};

} // namespace quorvane
