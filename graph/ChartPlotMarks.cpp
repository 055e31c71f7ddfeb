#include "graph/ChartParts.h"
#include "graph/ChartPlot.h"

#include <algorithm>

// What is drawn across the curves when a picture is made: alarm lines and gaps.

namespace quorvane {
namespace {

const QColor kGapHatch(64, 128, 136);
const QColor kGapEdge(0, 0, 0);
constexpr int kHatchDistance = 10;
constexpr int kNarrowestHatch = 4;

Qt::PenStyle ToolkitStyle(LineStyle style)
{
    switch (style) {
    case LineStyle::Dash:
        return Qt::DashLine;
    case LineStyle::DashDot:
        return Qt::DashDotLine;
    case LineStyle::Solid:
        break;
    }
    return Qt::SolidLine;
}

} // namespace

void ChartPlot::DrawLevel(LineStyle style, double level)
{
    if (levelPainter_ == nullptr)
        return;
    const QRect area = CurveArea();
    const int y = qRound(std::clamp(yAxis->coordToPixel(level), -1e6, 1e6));
    levelPainter_->save();
    levelPainter_->setClipRect(area.adjusted(0, -1, 1, 1)); // a zoom may have left the level below the axis
    levelPainter_->setPen(QPen(QColor(255, 0, 0), 1, ToolkitStyle(style), Qt::FlatCap));
    levelPainter_->drawLine(QLineF(area.left(), y, area.right(), y));
    levelPainter_->restore();
}

void ChartPlot::DrawGap(ChartTime begin, ChartTime end)
{
    if (gapPainter_ == nullptr)
        return;
    const QRect area = CurveArea();
    const auto place = [&](ChartTime time) { // a little beyond the edges is far enough
        const double x = xAxis->coordToPixel(time * kDaySeconds);
        return qRound(std::clamp(x, area.left() - 2.0, area.right() + 2.0));
    };
    const QRect gap(QPoint(place(begin), area.top()), QPoint(place(end), area.bottom()));
    gapPainter_->save();
    gapPainter_->setClipRect(area);
    gapPainter_->setPen(QPen(kGapHatch, 1));
    if (gap.width() > kNarrowestHatch) {
        gapPainter_->setClipRect(area & gap);
        for (int x = gap.left(); x < gap.right() + gap.height(); x += kHatchDistance)
            gapPainter_->drawLine(QLine(x, gap.top(), x - gap.height(), gap.bottom()));
    }
    gapPainter_->setPen(QPen(kGapEdge, 1, Qt::DashLine, Qt::FlatCap));
    gapPainter_->drawLine(QLine(gap.topLeft(), gap.bottomLeft()));
    if (gap.width() > 1)
        gapPainter_->drawLine(QLine(gap.topRight(), gap.bottomRight()));
    gapPainter_->restore();
}

} // namespace quorvane
