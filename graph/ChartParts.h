#pragma once

#include "graph/PlotLibrary.h"

#include <functional>

namespace quorvane {

inline constexpr double kDaySeconds = 86400;

/// Labels of the time axis at round times. Coordinates are seconds since 1970, local time taken for UTC.
class TimeTicker final : public QCPAxisTicker {
protected:
    double getTickStep(const QCPRange& range) override;
    int getSubTickCount(double tickStep) override;
    QString getTickLabel(double tick, const QLocale& locale, QChar formatChar, int precision) override;

private:
    QString format_;
};

/// Labels of the value axis at round values.
class ValueTicker final : public QCPAxisTicker {
public:
    /// 0: no step is too small.
    void SetSmallestStep(double step) { smallestStep_ = step; }

protected:
    double getTickStep(const QCPRange& range) override;
    QString getTickLabel(double tick, const QLocale& locale, QChar formatChar, int precision) override;

private:
    double smallestStep_ = 0;
    int decimals_ = 0;
};

/// A line. Where many points share a column of pixels it is drawn from the lowest to the highest of them, so
/// that 65,500 readings cost no more than the picture is wide, however noisy they are. A point whose value is
/// no number breaks it.
class LineSeries : public QCPGraph {
public:
    using QCPGraph::QCPGraph;

protected:
    using Iterator = QCPGraphDataContainer::const_iterator;
    void getOptimizedLineData(QVector<QCPGraphData>* lineData, const Iterator& begin,
                              const Iterator& end) const override;
    void drawLinePlot(QCPPainter* painter, const QVector<QPointF>& lines) const override;

private:
    void DrawLonePoints(QCPPainter& painter, const QVector<QPointF>& lines) const;
};

/// Bars, 6 % of the distance of two readings wide, as outlines; where that is too narrow to see into, each
/// is one line.
class BarSeries final : public LineSeries {
public:
    BarSeries(QCPAxis* timeAxis, QCPAxis* valueAxis);

protected:
    void draw(QCPPainter* painter) override;
    void drawLegendIcon(QCPPainter* painter, const QRectF& rect) const override;

private:
    [[nodiscard]] double WidthInPixels(Iterator begin, Iterator end) const;
};

/// Something that is drawn with the chart, so that prints and files have it too.
class Decoration final : public QCPLayerable {
public:
    using Drawing = std::function<void(QCPPainter*)>;
    Decoration(QCustomPlot* plot, const QString& layer, Drawing drawing);

protected:
    void applyDefaultAntialiasingHint(QCPPainter* painter) const override;
    void draw(QCPPainter* painter) override { drawing_(painter); }
    [[nodiscard]] QRect clipRect() const override;

private:
    Drawing drawing_;
};

} // namespace quorvane
