#include "graph/ChartParts.h"

#include "graph/ChartSteps.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvane {
namespace {

constexpr double kPointsPerColumn = 2;
constexpr double kInColumn = 0.25; ///< where a column's line stands; a half would be rounded either way
constexpr double kBarShare = 0.06; ///< of the distance of two points
constexpr double kNarrowestOutline = 3;

qint64 DayOf(double seconds)
{
    return static_cast<qint64>(std::floor(seconds / kDaySeconds));
}

/// A zoom may leave points far outside the picture.
QPoint PixelOf(const QPointF& point)
{
    constexpr double kFar = 1e6;
    return {qRound(std::clamp(point.x(), -kFar, kFar)), qRound(std::clamp(point.y(), -kFar, kFar))};
}

bool IsBreak(const QPointF& point)
{
    return std::isnan(point.y());
}

} // namespace

double TimeTicker::getTickStep(const QCPRange& range)
{
    const double step = RoundTimeStep(range.size() / std::max(1, tickCount()));
    format_ = step < 60 ? u"hh:mm:ss"_qs : u"hh:mm"_qs;
    if (DayOf(range.lower) != DayOf(range.upper))
        format_ += u"\nyyyy-MM-dd"_qs;
    if (DayOf(range.lower) == 0) // before the first reading there is no time to show
        format_.clear();
    return step;
}

int TimeTicker::getSubTickCount(double tickStep)
{
    return tickStep < 2 ? 0 : 1;
}

QString TimeTicker::getTickLabel(double tick, const QLocale&, QChar, int)
{
    return format_.isEmpty() ? QString()
                             : QDateTime::fromSecsSinceEpoch(qRound64(tick), Qt::UTC).toString(format_);
}

double ValueTicker::getTickStep(const QCPRange& range)
{
    const double step = RoundValueStep(std::max(smallestStep_, range.size() / std::max(1, tickCount())));
    decimals_ = DecimalsOfStep(step);
    return step;
}

QString ValueTicker::getTickLabel(double tick, const QLocale& locale, QChar, int)
{
    return locale.toString(tick + 0.0, 'f', decimals_); // + 0.0: no minus before a zero
}

void LineSeries::getOptimizedLineData(QVector<QCPGraphData>* lineData, const Iterator& begin,
                                      const Iterator& end) const
{
    const QCPRange shown = keyAxis()->range();
    const double columns = keyAxis()->axisRect()->width();
    if (static_cast<double>(end - begin) < kPointsPerColumn * columns) {
        QCPGraph::getOptimizedLineData(lineData, begin, end);
        return;
    }
    const double perKey = columns / shown.size();
    double previous = 0;
    for (Iterator point = begin; point != end;) {
        if (std::isnan(point->value)) { // the line is broken here
            lineData->append(*point++);
            continue;
        }
        const double column = std::floor((point->key - shown.lower) * perKey);
        const double columnEnd = shown.lower + (column + 1) / perKey;
        double low = point->value;
        double high = low;
        for (++point; point != end && point->key < columnEnd && !std::isnan(point->value); ++point) {
            low = std::min(low, point->value);
            high = std::max(high, point->value);
        }
        const double key = shown.lower + (column + kInColumn) / perKey;
        const bool upwards = std::abs(previous - low) < std::abs(previous - high); // the shorter way there
        previous = upwards ? high : low;
        lineData->append({key, upwards ? low : high});
        if (high > low)
            lineData->append({key, previous});
    }
}

/// A reading between two gaps has no line to be seen by.
void LineSeries::DrawLonePoints(QCPPainter& painter, const QVector<QPointF>& lines) const
{
    const auto isBreak = [&](qsizetype i) { return i < 0 || i >= lines.size() || IsBreak(lines[i]); };
    for (qsizetype i = 0; lines.size() > 1 && i < lines.size(); ++i)
        if (!isBreak(i) && isBreak(i - 1) && isBreak(i + 1))
            painter.fillRect(QRect(PixelOf(lines[i]) - QPoint(1, 1), QSize(3, 3)), pen().color());
}

void LineSeries::drawLinePlot(QCPPainter* painter, const QVector<QPointF>& lines) const
{
    DrawLonePoints(*painter, lines);
    if (painter->modes().testFlag(QCPPainter::pmVectorized)) {
        QCPGraph::drawLinePlot(painter, lines);
        return;
    }
    applyDefaultAntialiasingHint(painter);
    painter->setPen(pen());
    const int width = pen().width();
    for (qsizetype i = 1; i < lines.size(); ++i) {
        if (IsBreak(lines[i - 1]) || IsBreak(lines[i]))
            continue;
        const QPoint from = PixelOf(lines[i - 1]);
        const QPoint to = PixelOf(lines[i]);
        if (from.x() != to.x()) {
            painter->drawLine(from, to);
            continue;
        }
        // The toolkit draws a line point by point, a rectangle all at once.
        painter->fillRect(from.x() - width / 2, std::min(from.y(), to.y()), width,
                          std::abs(to.y() - from.y()) + 1, pen().color());
    }
}

BarSeries::BarSeries(QCPAxis* timeAxis, QCPAxis* valueAxis) : LineSeries(timeAxis, valueAxis)
{
    setLineStyle(lsImpulse);
    setAntialiased(false);
}

void BarSeries::draw(QCPPainter* painter)
{
    const QCPRange shown = keyAxis()->range();
    const Iterator begin = mDataContainer->findBegin(shown.lower);
    const Iterator end = mDataContainer->findEnd(shown.upper);
    const double width = WidthInPixels(begin, end);
    if (width < kNarrowestOutline) {
        QCPGraph::draw(painter);
        return;
    }
    applyDefaultAntialiasingHint(painter);
    painter->setPen(pen());
    painter->setBrush(Qt::NoBrush);
    const int base = PixelOf({0, valueAxis()->coordToPixel(0)}).y();
    const int across = qRound(width);
    for (Iterator point = begin; point != end; ++point) {
        const QPoint top = PixelOf(coordsToPixels(point->key, point->value));
        painter->drawRect(top.x() - across / 2, top.y(), across, base - top.y());
    }
}

double BarSeries::WidthInPixels(Iterator begin, Iterator end) const
{
    const double mostOutlines = keyAxis()->axisRect()->width() * kBarShare / kNarrowestOutline;
    if (end - begin < 2 || static_cast<double>(end - begin) > mostOutlines + 2) // 2: one beyond each edge
        return 0;
    double distance = keyAxis()->range().size();
    for (Iterator point = begin + 1; point != end; ++point)
        if (const double step = point->key - (point - 1)->key; step > 0)
            distance = std::min(distance, step);
    return kBarShare * distance / keyAxis()->range().size() * keyAxis()->axisRect()->width();
}

void BarSeries::drawLegendIcon(QCPPainter* painter, const QRectF& rect) const
{
    applyDefaultAntialiasingHint(painter);
    painter->setPen(pen());
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(rect.adjusted(0, 3, -1, -4));
}

Decoration::Decoration(QCustomPlot* plot, const QString& layer, Drawing drawing)
    : QCPLayerable(plot, layer), drawing_(std::move(drawing))
{
}

void Decoration::applyDefaultAntialiasingHint(QCPPainter* painter) const
{
    painter->setAntialiasing(false);
}

QRect Decoration::clipRect() const
{
    return mParentPlot->viewport().adjusted(0, 0, 0, 1); // the library shifts it up by one
}

} // namespace quorvane
