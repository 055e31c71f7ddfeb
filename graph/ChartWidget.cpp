#include "graph/ChartWidget.h"

#include "app/QtText.h"
#include "app/ScopedFlag.h"
#include "graph/ChartOverlay.h"
#include "graph/ChartPlot.h"
#include "resources/OwnTexts.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvane {
namespace {

constexpr double kNarrowestTime = 1.0 / 86400; ///< days
constexpr double kWidestTime = 3653;
constexpr double kLowestHeight = 0.001; ///< what the instrument can tell apart, mg/m3
constexpr double kHighestHeight = 1e12;
constexpr double kZoomStep = 0.8; ///< of one notch of the wheel, of one key
constexpr double kWheelNotch = 120;
constexpr double kScrollShare = 0.1;
constexpr int kSmallestBand = 4; ///< pixels; a smaller one is a click of an unsteady hand

/// Keeps the distance of two limits within bounds, around the same middle, and both at 0 or above: time and
/// dust are never negative, and an axis that has come down to 0 stays there.
void Bound(double& low, double& high, double least, double most)
{
    low = std::max(0.0, low);
    const double distance = std::clamp(high - low, least, most);
    if (low > 0)
        low = std::max(0.0, (low + high - distance) / 2);
    high = low + distance;
}

bool IsFinite(const ChartLimits& limits)
{
    return std::isfinite(limits.bottomMinimum) && std::isfinite(limits.bottomMaximum) &&
           std::isfinite(limits.leftMinimum) && std::isfinite(limits.leftMaximum);
}

} // namespace

ChartWidget::ChartWidget(QWidget* parent)
    : QWidget(parent), plot_(std::make_unique<ChartPlot>(this)), overlay_(new ChartOverlay(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    plot_->ShowLimits(shown_);
}

ChartWidget::~ChartWidget() = default;

void ChartWidget::SetFonts()
{
    plot_->SetFonts();
    Changed();
}

void ChartWidget::SetCaptions(const Texts& texts)
{
    plot_->SetCaptions(texts);
    setAccessibleName(Shown(texts[kChartText]));
    setAccessibleDescription(Shown(texts[kChartKeysText]));
    Changed();
}

void ChartWidget::OnHover(std::function<QString(ChartTime)> hint)
{
    if (!hint) {
        overlay_->SetHint({});
        return;
    }
    overlay_->SetHint(
        [this, text = std::move(hint)](QPoint mouse) { return text(plot_->TimeAt(mouse.x())); });
}

QPicture ChartWidget::Frozen(QSize size)
{
    return plot_->Frozen(size);
}

// ---- axes -----------------------------------------------------------------------------------------------

ChartTime ChartWidget::BottomMinimum() const
{
    return shown_.bottomMinimum;
}

ChartTime ChartWidget::BottomMaximum() const
{
    return shown_.bottomMaximum;
}

double ChartWidget::LeftMinimum() const
{
    return shown_.leftMinimum;
}

double ChartWidget::LeftMaximum() const
{
    return shown_.leftMaximum;
}

void ChartWidget::SetBottomMinimum(ChartTime time)
{
    Set(&ChartLimits::bottomMinimum, time);
}

void ChartWidget::SetBottomMaximum(ChartTime time)
{
    Set(&ChartLimits::bottomMaximum, time);
}

void ChartWidget::SetLeftMaximum(double value)
{
    if (value <= shown_.leftMinimum)
        shown_.leftMinimum = 0;
    Set(&ChartLimits::leftMaximum, value);
}

void ChartWidget::Set(double ChartLimits::*limit, double value)
{
    if (!std::isfinite(value))
        return;
    shown_.*limit = value;
    if (!inZoomHandler_)
        given_.*limit = value;
    plot_->ShowLimits(shown_);
    Changed();
}

void ChartWidget::SetView(ChartView view)
{
    plot_->SetView(view);
    Changed();
}

// ---- points and looks -----------------------------------------------------------------------------------

void ChartWidget::AddPoint(std::int16_t series, ChartTime time, double value)
{
    plot_->AddPoint(series, time, value);
    Changed();
}

void ChartWidget::ClearPoints()
{
    plot_->ClearPoints();
    Changed();
}

void ChartWidget::BreakLines()
{
    plot_->BreakLines();
}

void ChartWidget::SetInLegend(std::int16_t series, bool shown)
{
    plot_->SetInLegend(series, shown);
    Changed();
}

void ChartWidget::SetSimulated(bool simulated)
{
    plot_->SetSimulated(simulated);
    Changed();
}

void ChartWidget::SetAutoRepaint(bool on)
{
    autoRepaint_ = on;
}

void ChartWidget::Changed()
{
    if (autoRepaint_)
        Repaint();
}

void ChartWidget::Repaint()
{
    plot_->MakeStale();
}

void ChartWidget::RepaintNow()
{
    plot_->RedrawNow();
}

void ChartWidget::OnRedraw(std::function<void()> handler)
{
    plot_->OnRedraw(std::move(handler));
}

void ChartWidget::OnRedrawBehind(std::function<void()> handler)
{
    plot_->OnRedrawBehind(std::move(handler));
}

void ChartWidget::DrawLevel(LineStyle style, double level)
{
    plot_->DrawLevel(style, level);
}

void ChartWidget::DrawGap(ChartTime begin, ChartTime end)
{
    plot_->DrawGap(begin, end);
}

QRect ChartWidget::CurveArea() const
{
    return plot_->CurveArea();
}

// ---- zoom -----------------------------------------------------------------------------------------------

void ChartWidget::SetMouseZoom(bool on)
{
    mouseZoom_ = on;
    dragging_ = false;
    overlay_->HideBand();
}

void ChartWidget::UndoZoom()
{
    shown_ = given_;
    plot_->ShowLimits(shown_);
    Changed();
}

void ChartWidget::OnUserZoom(std::function<void()> handler)
{
    onUserZoom_ = std::move(handler);
}

void ChartWidget::Zoom(const ChartLimits& wanted)
{
    if (!IsFinite(wanted))
        return;
    shown_ = wanted;
    Bound(shown_.bottomMinimum, shown_.bottomMaximum, kNarrowestTime, kWidestTime);
    Bound(shown_.leftMinimum, shown_.leftMaximum, kLowestHeight, kHighestHeight);
    plot_->ShowLimits(shown_);
    if (onUserZoom_ && !inZoomHandler_) {
        const ScopedFlag inHandler(inZoomHandler_);
        onUserZoom_();
    }
    Repaint();
}

void ChartWidget::ZoomInto(QRect band)
{
    if (band.width() < kSmallestBand || band.height() < kSmallestBand)
        return;
    Zoom({.bottomMinimum = plot_->TimeAt(band.left()),
          .bottomMaximum = plot_->TimeAt(band.right()),
          .leftMinimum = plot_->ValueAt(band.bottom()),
          .leftMaximum = plot_->ValueAt(band.top())});
}

void ChartWidget::ZoomBy(double factor, QPointF around)
{
    const ChartTime time = plot_->TimeAt(around.x());
    const double value = plot_->ValueAt(around.y());
    Zoom({.bottomMinimum = time + (shown_.bottomMinimum - time) * factor,
          .bottomMaximum = time + (shown_.bottomMaximum - time) * factor,
          .leftMinimum = value + (shown_.leftMinimum - value) * factor,
          .leftMaximum = value + (shown_.leftMaximum - value) * factor});
}

// ---- mouse and keys -------------------------------------------------------------------------------------

QRect ChartWidget::Band(QPoint corner) const
{
    const QRect area = CurveArea();
    if (area.isEmpty()) // the chart has shrunk since
        return {};
    const QPoint inside(std::clamp(corner.x(), area.left(), area.right()),
                        std::clamp(corner.y(), area.top(), area.bottom()));
    return {QPoint(std::min(dragStart_.x(), inside.x()), std::min(dragStart_.y(), inside.y())),
            QPoint(std::max(dragStart_.x(), inside.x()), std::max(dragStart_.y(), inside.y()))};
}

void ChartWidget::mousePressEvent(QMouseEvent* event)
{
    dragging_ = mouseZoom_ && event->button() == Qt::LeftButton && CurveArea().contains(event->pos());
    dragStart_ = event->pos();
}

void ChartWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (dragging_)
        overlay_->ShowBand(Band(event->pos()));
    if (CurveArea().contains(event->pos()))
        overlay_->ShowHint(event->pos(), CurveArea());
    else
        overlay_->HideHint();
}

void ChartWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (!dragging_ || event->button() != Qt::LeftButton)
        return;
    dragging_ = false;
    overlay_->HideBand();
    ZoomInto(Band(event->pos()));
}

void ChartWidget::leaveEvent(QEvent*)
{
    overlay_->HideHint();
}

void ChartWidget::wheelEvent(QWheelEvent* event)
{
    const int turned = event->angleDelta().y();
    if (!mouseZoom_ || turned == 0 || !CurveArea().contains(event->position().toPoint())) {
        event->ignore();
        return;
    }
    ZoomBy(std::pow(kZoomStep, turned / kWheelNotch), event->position());
}

void ChartWidget::keyPressEvent(QKeyEvent* event)
{
    ChartLimits scrolled = shown_;
    const double step = (scrolled.bottomMaximum - scrolled.bottomMinimum) * kScrollShare;
    const auto scroll = [&](double days) {
        scrolled.bottomMinimum += days;
        scrolled.bottomMaximum += days;
        Zoom(scrolled);
    };
    switch (mouseZoom_ ? event->key() : 0) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key without Shift
        return ZoomBy(kZoomStep, QRectF(CurveArea()).center());
    case Qt::Key_Minus:
        return ZoomBy(1 / kZoomStep, QRectF(CurveArea()).center());
    case Qt::Key_Left:
        return scroll(-step);
    case Qt::Key_Right:
        return scroll(step);
    default:
        event->ignore();
    }
}

void ChartWidget::focusInEvent(QFocusEvent*)
{
    overlay_->update();
}

void ChartWidget::focusOutEvent(QFocusEvent*)
{
    overlay_->update();
}

void ChartWidget::resizeEvent(QResizeEvent*)
{
    plot_->setGeometry(rect());
    overlay_->setGeometry(rect());
    overlay_->HideHint(); // what it may cover has moved
}

std::string PlotLibraryVersion()
{
    return QCUSTOMPLOT_VERSION_STR;
}

} // namespace quorvane
