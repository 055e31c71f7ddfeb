#include "measure/LiveTable.h"

#include "measure/LiveTableModel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QImage>
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

TEST(LiveTable, ARowBehindAGapHasALineAndTellsWhatItWasAndIsCopiedAsBefore)
{
    MeasurementArrays arrays;
    arrays.Create(9);
    LiveTableModel model(arrays);
    model.SetGapText([](const RunGap& gap) { return u"until %1"_qs.arg(gap.to.time_since_epoch().count()); });
    LiveTable table;
    table.setModel(&model);
    table.resize(400, 400);
    table.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&table));
    model.Reset(4);
    const auto copied = [&] {
        table.selectAll();
        QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
        const QString text = QGuiApplication::clipboard()->text();
        table.clearSelection();
        return text;
    };
    const auto looks = [&] { // of the upper edges of rows 3 and 6, in the table and beside the numbers
        QVector<QRgb> pixels;
        const QImage image = table.grab().toImage();
        for (const int row : {2, 5})
            for (QWidget* const part : {table.viewport(), static_cast<QWidget*>(table.verticalHeader())})
                for (int x = 0; x < 30; ++x)
                    pixels += image.pixel(part->mapTo(
                        &table, QPoint(x, table.verticalHeader()->sectionViewportPosition(row) + 1)));
        return pixels;
    };
    const QString before = copied();
    model.Add(6);
    const auto plain = looks();
    model.Reset(4);

    arrays.Gaps = {{3, GapKind::PortLost, {}, LocalMoment(std::chrono::seconds(60))},
                   {3, GapKind::ClockSet, {}, LocalMoment(std::chrono::seconds(70))},
                   {5, GapKind::ClockSet, {}, {}},
                   {6, GapKind::Standstill, {}, LocalMoment(std::chrono::seconds(80))},
                   {7, GapKind::Standstill, {}, {}}}; // no reading is behind it yet
    model.Add(6);                                     // in a run
    const auto marked = looks();
    for (qsizetype part = 0; part < 4; ++part)
        EXPECT_NE(marked.mid(30 * part, 30), plain.mid(30 * part, 30)) << part;
    for (const auto& [row, behind] :
         {std::pair(2, kBehindLoss), {3, 0}, {4, kBehindSetClock}, {5, kBehindLoss}})
        EXPECT_EQ(model.headerData(row, Qt::Vertical, kBehindGapRole).toInt(), behind) << row;
    for (const auto& [row, text] : {std::pair(1, u""_qs), {2, u"until 60\nuntil 70"_qs}, {5, u"until 80"_qs}})
        for (const int role : {int{Qt::ToolTipRole}, int{Qt::AccessibleDescriptionRole}}) {
            EXPECT_EQ(model.index(row, 3).data(role).toString(), text);
            EXPECT_EQ(model.headerData(row, Qt::Vertical, role).toString(), text);
        }
    model.Reset(4);
    EXPECT_EQ(copied(), before);
}

} // namespace
} // namespace quorvane
