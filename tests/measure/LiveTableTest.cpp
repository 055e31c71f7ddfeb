#include "measure/LiveTable.h"

#include "measure/LiveTableModel.h"

#include <QIdentityProxyModel>
#include <QTest>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

/// Counts what is asked for row numbers, be it to paint or to measure them.
class CountingModel : public QIdentityProxyModel {
public:
    mutable int numbers = 0;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        numbers += orientation == Qt::Vertical && role == Qt::DisplayRole ? 1 : 0;
        return QIdentityProxyModel::headerData(section, orientation, role);
    }
};

TEST(LiveTable, AReadingCostsTheSameHoweverManyThereAre)
{
    constexpr int kReadings = 3000;
    MeasurementArrays arrays;
    arrays.Create(kReadings + 1);
    LiveTableModel readings(arrays);
    CountingModel model;
    model.setSourceModel(&readings);
    LiveTable table;
    table.setModel(&model);
    table.resize(400, 600); // there is room below the sixth row
    table.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&table));
    readings.Reset(kReadings);
    table.ShowNewest();
    QApplication::processEvents();
    model.numbers = 0;
    readings.Add(kReadings + 1);
    QApplication::processEvents(); // painted before it has scrolled, and once more below the last row
    table.ShowNewest();
    QApplication::processEvents();
    EXPECT_GT(model.numbers, 0);
    EXPECT_LT(model.numbers, 50);
}

} // namespace
} // namespace quorvane
