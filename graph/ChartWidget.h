#pragma once

#include "app/Texts.h"
#include "graph/ChartControl.h"
#include "graph/ChartLimits.h"

#include <QPicture>
#include <QWidget>
#include <memory>
#include <string>

namespace quorvane {

class ChartOverlay;
class ChartPlot;

/// The chart on the screen, on paper and in files. While zooming is on, dragging zooms in on a rectangle, the
/// wheel and the keys + and - zoom, Left and Right scroll; while it is off, mouse and keys do nothing.
class ChartWidget final : public QWidget, public ChartControl {
public:
    explicit ChartWidget(QWidget* parent = nullptr);
    ~ChartWidget() override;

    /// The chart's texts have sizes of their own, in pixels, and the families of Japanese texts in either
    /// language.
    void SetFonts();
    /// Legend, axis titles, notice of simulated values, accessible name.
    void SetCaptions(const Texts& texts);
    /// `hint` gives the text shown beside the mouse for the time under it; an empty one shows nothing.
    void OnHover(std::function<QString(ChartTime)> hint);
    /// The chart as it stands, in `size` units of 1/96 inch; later readings do not change it.
    [[nodiscard]] QPicture Frozen(QSize size);
    /// Draws at once what `Repaint` would have drawn when the events are served next.
    void RepaintNow();
    /// Where the curves are, in pixels of the widget as it was last drawn.
    [[nodiscard]] QRect CurveArea() const;
    [[nodiscard]] double LeftMinimum() const;

    [[nodiscard]] QSize sizeHint() const override { return {720, 360}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {320, 140}; }

    [[nodiscard]] ChartTime BottomMinimum() const override;
    [[nodiscard]] ChartTime BottomMaximum() const override;
    void SetBottomMinimum(ChartTime time) override;
    void SetBottomMaximum(ChartTime time) override;
    [[nodiscard]] double LeftMaximum() const override;
    void SetLeftMaximum(double value) override;
    void SetView(ChartView view) override;
    void AddPoint(std::int16_t series, ChartTime time, double value) override;
    void ClearPoints() override;
    void BreakLines() override;
    void SetInLegend(std::int16_t series, bool shown) override;
    void SetSimulated(bool simulated) override;
    void SetAutoRepaint(bool on) override;
    void Repaint() override;
    void SetMouseZoom(bool on) override;
    void UndoZoom() override;
    void OnRedraw(std::function<void()> handler) override;
    void OnRedrawBehind(std::function<void()> handler) override;
    void OnUserZoom(std::function<void()> handler) override;
    void DrawLevel(LineStyle style, double level) override;
    void DrawGap(ChartTime begin, ChartTime end) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Set(double ChartLimits::*limit, double value);
    void Changed();
    [[nodiscard]] QRect Band(QPoint corner) const;
    void ZoomInto(QRect band);
    void ZoomBy(double factor, QPointF around);
    void Zoom(const ChartLimits& wanted);

    std::unique_ptr<ChartPlot> plot_; ///< the library's side; its header is heavy and stays in the sources
    ChartOverlay* overlay_;
    ChartLimits shown_;
    ChartLimits given_; ///< by the program, outside a zoom
    std::function<void()> onUserZoom_;
    bool inZoomHandler_ = false;
    bool autoRepaint_ = true;
    bool mouseZoom_ = false;
    bool dragging_ = false;
    QPoint dragStart_;
};

/// The version of the plotting library that the chart is drawn with: "2.1.0".
[[nodiscard]] std::string PlotLibraryVersion();

} // namespace quorvane
