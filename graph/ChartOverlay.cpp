#include "graph/ChartOverlay.h"

#include <QPainter>

namespace quorvane {
namespace {

const QColor kHintPaper(255, 255, 225);
constexpr int kHintDistance = 12;
constexpr int kHintMargin = 4;
constexpr int kHintPixels = 13;

} // namespace

ChartOverlay::ChartOverlay(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ChartOverlay::ShowHint(QPoint mouse, QRect area)
{
    mouse_ = mouse;
    area_ = area;
    update();
}

void ChartOverlay::HideHint()
{
    if (mouse_)
        update();
    mouse_.reset();
}

void ChartOverlay::ShowBand(QRect band)
{
    band_ = band;
    update();
}

void ChartOverlay::HideBand()
{
    band_ = {};
    update();
}

void ChartOverlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (parentWidget()->hasFocus()) {
        painter.setPen(QPen(Qt::black, 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(7, 7, -8, -8));
    }
    if (!band_.isNull()) {
        painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
        painter.setBrush(QColor(255, 255, 255, 64));
        painter.drawRect(band_.adjusted(0, 0, -1, -1));
    } else if (mouse_ && hint_) {
        DrawHint(painter);
    }
}

void ChartOverlay::DrawHint(QPainter& painter) const
{
    const QString text = hint_(*mouse_);
    if (text.isEmpty())
        return;
    painter.setPen(QPen(QColor(0, 0, 0, 128), 1));
    painter.drawLine(mouse_->x(), area_.top(), mouse_->x(), area_.bottom());

    QFont font = this->font();
    font.setPixelSize(kHintPixels);
    painter.setFont(font);
    QRect box = painter.fontMetrics()
                    .boundingRect(QRect(), Qt::AlignLeft, text)
                    .adjusted(-kHintMargin, -kHintMargin, kHintMargin, kHintMargin);
    box.moveTopLeft(*mouse_ + QPoint(kHintDistance, kHintDistance));
    if (box.right() > area_.right())
        box.moveRight(mouse_->x() - kHintDistance);
    if (box.left() < area_.left())
        box.moveLeft(area_.left());
    if (box.bottom() > area_.bottom())
        box.moveBottom(std::max(area_.top() + box.height(), mouse_->y() - kHintDistance));
    painter.setPen(Qt::black); // its own colours, whatever the desktop's
    painter.setBrush(kHintPaper);
    painter.drawRect(box);
    painter.drawText(box.adjusted(kHintMargin, kHintMargin, 0, 0), Qt::AlignLeft, text);
}

} // namespace quorvane
