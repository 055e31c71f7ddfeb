#include "graph/ChartWidget.h"
#include "resources/StringTable.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>

namespace quorvane {
namespace {

constexpr int kReadings = 65500;
constexpr int kAppended = 200; ///< of them while the time is taken
constexpr ChartTime kStart = 19844;
constexpr ChartTime kSecond = 1.0 / 86400;
constexpr ChartTime kLastMinute = 0.0006;

ChartTime TimeOf(int reading)
{
    return kStart + reading * kSecond;
}

/// Between 0 and 1, never the same for long, as readings are.
double Noise(int reading)
{
    return 0.5 + 0.3 * std::sin(reading * 0.003) + 0.2 * std::sin(reading * 1.7);
}

void AddMassReading(ChartWidget& chart, int reading)
{
    for (const std::int16_t series : {kTwaSeries, kStelSeries, kMassSeries, kMassIntegratedSeries})
        chart.AddPoint(series, TimeOf(reading), Noise(reading + 100 * series));
}

void AddRelativeReading(ChartWidget& chart, int reading)
{
    chart.AddPoint(kRelativeSeries, TimeOf(reading), 60 * Noise(reading));
    chart.AddPoint(kRelativeIntegratedSeries, TimeOf(reading), 30.0 * reading);
}

std::unique_ptr<ChartWidget> ShownChart(ChartView view, ChartTime from, double highest)
{
    const StringTable table(TableLanguage::English);
    const ProgramPlace place;
    auto chart = std::make_unique<ChartWidget>();
    chart->SetCaptions(Texts(table, place));
    chart->SetAutoRepaint(false);
    chart->SetView(view);
    for (std::int16_t series = 0; series < kChartSeriesCount; ++series)
        chart->SetInLegend(series, (view == ChartView::Relative) ==
                                       (series == kRelativeSeries || series == kRelativeIntegratedSeries));
    chart->SetBottomMaximum(TimeOf(kReadings));
    chart->SetBottomMinimum(from);
    chart->SetLeftMaximum(highest);
    chart->OnRedraw([control = chart.get()] {
        control->DrawLevel(LineStyle::DashDot, 0.3);
        control->DrawLevel(LineStyle::Dash, 0.4);
        control->DrawLevel(LineStyle::Solid, 0.5);
    });
    chart->resize(1000, 500);
    chart->show();
    return chart;
}

/// Appends a reading and paints the window.
template <typename Add>
void AppendAndPaint(benchmark::State& state, ChartWidget& chart, Add add)
{
    int reading = 0;
    while (++reading <= kReadings - kAppended)
        add(chart, reading);
    chart.RepaintNow();
    QApplication::processEvents();
    for (auto _ : state) {
        add(chart, reading++);
        chart.RepaintNow();
        QApplication::processEvents();
    }
}

void BM_ChartMassAll(benchmark::State& state)
{
    AppendAndPaint(state, *ShownChart(ChartView::Mass, kStart, 1), AddMassReading);
}

void BM_ChartRelativeAll(benchmark::State& state)
{
    AppendAndPaint(state, *ShownChart(ChartView::Relative, kStart, 30.0 * kReadings), AddRelativeReading);
}

void BM_ChartMassLastMinute(benchmark::State& state)
{
    AppendAndPaint(state, *ShownChart(ChartView::Mass, TimeOf(kReadings) - kLastMinute, 1), AddMassReading);
}

BENCHMARK(BM_ChartMassAll)->Unit(benchmark::kMillisecond)->Iterations(kAppended);
BENCHMARK(BM_ChartRelativeAll)->Unit(benchmark::kMillisecond)->Iterations(kAppended);
BENCHMARK(BM_ChartMassLastMinute)->Unit(benchmark::kMillisecond)->Iterations(kAppended);

} // namespace
} // namespace quorvane
