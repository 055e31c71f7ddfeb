#include "measure/LiveTable.h"
#include "measure/LiveTableModel.h"

#include <QApplication>
#include <benchmark/benchmark.h>

namespace quorvane {
namespace {

constexpr int kReadings = 65500;
constexpr int kAppended = 500; ///< of them while the time is taken

/// One more reading below 65,000 others: a row appended, the table scrolled, the rows in sight painted.
void AppendAndScroll(benchmark::State& state)
{
    MeasurementArrays arrays;
    arrays.Create(kReadings);
    for (std::size_t i = 1; i <= kReadings; ++i) {
        arrays.MeasureTime[i] = "09:30:00";
        arrays.CountValue[i] = static_cast<double>(i % 1000);
        arrays.ConcValue[i] = 0.001 * static_cast<double>(i % 777);
        arrays.DerivedValueA[i] = arrays.DerivedValueB[i] = 0.0123 + arrays.ConcValue[i];
        arrays.IntegratedCount[i] = 500.0 * static_cast<double>(i);
        arrays.IntegratedConc[i] = 0.35 * static_cast<double>(i);
    }
    LiveTableModel model(arrays);
    LiveTable table;
    table.setModel(&model);
    table.FitColumns();
    table.resize(700, 500);
    table.show();
    int reading = kReadings - kAppended;
    model.Reset(reading);
    table.ShowNewest();
    QApplication::processEvents();
    for ([[maybe_unused]] const auto turn : state) {
        model.Add(++reading);
        table.ShowNewest();
        if (state.range(0) != 0)
            QApplication::processEvents(); // paints
    }
}
BENCHMARK(AppendAndScroll)
    ->ArgName("painted")
    ->Arg(0)
    ->Arg(1)
    ->Iterations(kAppended)
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace quorvane
