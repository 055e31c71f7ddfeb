#pragma once

#include "app/Texts.h"
#include "graph/ChartControl.h"
#include "graph/ChartLimits.h"
#include "graph/PlotLibrary.h"

#include <QPicture>
#include <array>
#include <functional>

namespace quorvane {

/// The picture of the chart: layout, series, alarm lines. It is drawn anew when it is next painted after
/// `MakeStale`, and so never while it is hidden. It takes no part in mouse and keyboard.
class ChartPlot final : public QCustomPlot {
public:
    explicit ChartPlot(QWidget* parent);

    void SetFonts();
    void SetCaptions(const Texts& texts);
    void SetView(ChartView view);
    void SetInLegend(std::int16_t series, bool shown);
    void SetSimulated(bool simulated) { simulated_ = simulated; }
    void ShowLimits(const ChartLimits& limits);
    void AddPoint(std::int16_t series, ChartTime time, double value);
    void ClearPoints();
    void BreakLines();

    void MakeStale();
    void RedrawNow();
    /// `handler` runs at the end of every redraw; only then `DrawLevel` draws.
    void OnRedraw(std::function<void()> handler) { onRedraw_ = std::move(handler); }
    void DrawLevel(LineStyle style, double level);
    /// `handler` runs in every redraw before the curves are drawn; only then `DrawGap` draws.
    void OnRedrawBehind(std::function<void()> handler) { onRedrawBehind_ = std::move(handler); }
    void DrawGap(ChartTime begin, ChartTime end);
    [[nodiscard]] QPicture Frozen(QSize size);

    /// Where the curves are, in pixels of the widget as it was last drawn.
    [[nodiscard]] QRect CurveArea() const { return axisRect()->rect(); }
    [[nodiscard]] ChartTime TimeAt(double x) const;
    [[nodiscard]] double ValueAt(double y) const { return yAxis->pixelToCoord(y); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void AddSeries();
    void AddDecorations();
    [[nodiscard]] QFont TextFont(int pixels) const;
    void SetUpAxes();
    void SetUpLegend();
    void LayOut(QSize size);
    void ArrangeLegend(QSize size);
    void DrawFrame(QCPPainter* painter) const;
    void DrawAxisTitle(QCPPainter* painter) const;
    void DrawNotice(QCPPainter* painter) const;

    QStringList families_; ///< of its texts
    std::array<bool, kChartSeriesCount> inLegend_{};
    ChartView view_ = ChartView::None;
    QString relativeTitle_;
    QString massTitle_;
    QString notice_;
    bool simulated_ = false;
    bool stale_ = true;
    std::function<void()> onRedraw_;
    std::function<void()> onRedrawBehind_;
    QCPPainter* levelPainter_ = nullptr; ///< while the redraw handler runs
    QCPPainter* gapPainter_ = nullptr;   ///< while the one for behind runs
};

} // namespace quorvane
