#include "graph/ChartPlot.h"

#include "app/ProgramFont.h"
#include "app/QtText.h"
#include "graph/ChartParts.h"
#include "resources/OwnTexts.h"

#include <algorithm>
#include <cmath>

namespace quorvane {
namespace {

// The picture has colours of its own, whatever the desktop's theme.
const QColor kPanel(2, 234, 253);
const QColor kLegendPanel(128, 128, 255);
const QColor kBevelLight(255, 255, 255);
const QColor kBevelDark(128, 128, 128);
const QColor kNoticeRed(176, 0, 0);

constexpr int kBevel = 3;
constexpr int kBorder = 1;
constexpr int kFrame = kBevel + kBorder + kBevel;
constexpr int kSideMarginPercent = 2;
constexpr int kLabelArea = 40; ///< of the value axis
constexpr int kTitleArea = 20;
constexpr int kTextPixels = 13;
constexpr int kLegendTextPixels = 11;
constexpr int kNoticePixels = 16;
constexpr int kNoticeMargin = 4;
constexpr int kSymbolPercent = 10; ///< of the legend's width
constexpr QMargins kLegendMargins(6, 2, 6, 2);
constexpr int kPixelsPerTimeLabel = 90;
constexpr int kPixelsPerValueLabel = 40;

struct SeriesLook {
    QColor colour;
    int width;
    int legendTextId;
};

const std::array<SeriesLook, kChartSeriesCount> kLooks = {{
    {QColor(255, 0, 0), 2, kLegendRelativeText},
    {QColor(0, 128, 0), 2, kLegendMassText},
    {QColor(0, 0, 255), 1, kLegendTwaText},
    {QColor(255, 255, 0), 1, kLegendStelText},
    {QColor(255, 255, 0), 1, kLegendRelativeIntegratedText},
    {QColor(255, 0, 255), 1, kLegendMassIntegratedText},
}};

const QString kBarLayer = QStringLiteral("bars");
const QString kLevelLayer = QStringLiteral("levels");

/// Two corners of shading just inside `rect`.
void DrawBevel(QPainter* painter, const QRect& rect, const QColor& topLeft, const QColor& bottomRight)
{
    for (int i = 0; i < kBevel; ++i) {
        const QRect line = rect.adjusted(i, i, -i, -i);
        painter->fillRect(QRect(line.left(), line.top(), line.width(), 1), topLeft);
        painter->fillRect(QRect(line.left(), line.top(), 1, line.height()), topLeft);
        painter->fillRect(QRect(line.left(), line.bottom(), line.width(), 1), bottomRight);
        painter->fillRect(QRect(line.right(), line.top(), 1, line.height()), bottomRight);
    }
}

} // namespace

ChartPlot::ChartPlot(QWidget* parent) : QCustomPlot(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setBackground(QBrush(kPanel));
    setPlottingHint(QCP::phFastPolylines); // or a line of width 2 takes a second at 65,500 points
    setNotAntialiasedElements(QCP::aeAll);
    setAutoAddPlottableToLegend(false);
    layer(u"overlay"_qs)->setMode(QCPLayer::lmLogical); // nothing there is drawn apart from the rest
    addLayer(kBarLayer, layer(u"main"_qs), limBelow);   // dense bars are a wall: lines stand before it
    addLayer(kLevelLayer, layer(u"legend"_qs), limAbove);
    SetUpAxes();
    SetUpLegend();
    AddSeries();
    AddDecorations();
    SetFonts();
}

/// Japanese in either language; meant: the chart has always been set in it.
void ChartPlot::SetFonts()
{
    families_ = ProgramFont(TableLanguage::Japanese).families();
    for (QCPAxis* const axis : axisRect()->axes()) {
        axis->setTickLabelFont(TextFont(kTextPixels));
        axis->setLabelFont(TextFont(kTextPixels));
    }
    legend->setFont(TextFont(kLegendTextPixels));
    LayOut(size());
}

QFont ChartPlot::TextFont(int pixels) const
{
    QFont font;
    font.setFamilies(families_);
    font.setPixelSize(pixels); // not points: paper and files scale the whole picture
    return font;
}

void ChartPlot::SetUpAxes()
{
    for (QCPAxis* const axis : axisRect()->axes()) {
        axis->setTickLabelColor(Qt::black);
        axis->setLabelColor(Qt::black);
        axis->grid()->setPen(QPen(QColor(0, 0, 0, 48), 1, Qt::DotLine));
        axis->grid()->setZeroLinePen(Qt::NoPen);
    }
    xAxis->setTicker(QSharedPointer<QCPAxisTicker>(new TimeTicker));
    yAxis->setTicker(QSharedPointer<QCPAxisTicker>(new ValueTicker));
    yAxis->setBasePen(QPen(Qt::red, 3, Qt::SolidLine, Qt::FlatCap));
    yAxis->setPadding(kTitleArea);
    axisRect()->setMinimumMargins({kLabelArea + kTitleArea, kPixelsPerValueLabel / 4, kLabelArea / 2, 0});

    // No series is drawn against the right axis; it stands ready as it would be shown.
    const QSharedPointer<QCPAxisTickerFixed> tenths(new QCPAxisTickerFixed);
    tenths->setTickStep(0.1);
    yAxis2->setTicker(tenths);
    yAxis2->setRange(0, 1);
    yAxis2->setBasePen(QPen(Qt::yellow, 3));
    yAxis2->setVisible(false);
    xAxis2->setVisible(false);
}

void ChartPlot::SetUpLegend()
{
    auto* const row = new QCPLayoutGrid;
    plotLayout()->insertRow(0);
    plotLayout()->addElement(0, 0, row);
    plotLayout()->setRowStretchFactors({0.001, 1});
    plotLayout()->setRowSpacing(0);
    axisRect()->insetLayout()->take(legend);
    row->expandTo(1, 3); // empty to both sides, so that it stands in the middle
    row->addElement(0, 1, legend);
    row->setColumnStretchFactor(1, 0.001);
    legend->setTextColor(Qt::black);
    legend->setBrush(kLegendPanel);
    legend->setBorderPen(QPen(Qt::black));
    legend->setMargins(kLegendMargins);
    legend->setRowSpacing(0);
    legend->setFillOrder(QCPLegend::foColumnsFirst, false);
}

void ChartPlot::AddSeries()
{
    for (std::int16_t series = 0; series < kChartSeriesCount; ++series) {
        const SeriesLook& look = kLooks.at(static_cast<std::size_t>(series));
        const bool bars = series == kRelativeIntegratedSeries;
        auto* const line = bars ? new BarSeries(xAxis, yAxis) : new LineSeries(xAxis, yAxis);
        line->setPen(QPen(look.colour, look.width));
        line->setSelectable(QCP::stNone);
        if (bars)
            line->setLayer(kBarLayer);
    }
}

void ChartPlot::AddDecorations()
{
    new Decoration(this, u"background"_qs, [this](QCPPainter* painter) { DrawFrame(painter); });
    new Decoration(this, u"grid"_qs, [this](QCPPainter* painter) {
        gapPainter_ = painter;
        if (onRedrawBehind_)
            onRedrawBehind_();
        gapPainter_ = nullptr;
    });
    new Decoration(this, u"axes"_qs, [this](QCPPainter* painter) { DrawAxisTitle(painter); });
    new Decoration(this, kLevelLayer, [this](QCPPainter* painter) { DrawNotice(painter); });
    new Decoration(this, kLevelLayer, [this](QCPPainter* painter) {
        levelPainter_ = painter;
        if (onRedraw_)
            onRedraw_();
        levelPainter_ = nullptr;
    });
}

void ChartPlot::SetCaptions(const Texts& texts)
{
    for (int series = 0; series < kChartSeriesCount; ++series)
        graph(series)->setName(Shown(texts[kLooks.at(static_cast<std::size_t>(series)).legendTextId]));
    relativeTitle_ = Shown(texts[kRelativeAxisText]);
    massTitle_ = Shown(texts[kMassAxisText]);
    notice_ = Shown(texts[kChartSimulatedText]);
    yAxis2->setLabel(massTitle_);
    LayOut(size());
}

void ChartPlot::SetView(ChartView view)
{
    view_ = view;
    yAxis->ticker().staticCast<ValueTicker>()->SetSmallestStep(view == ChartView::Relative ? 1 : 0);
}

void ChartPlot::SetInLegend(std::int16_t series, bool shown)
{
    inLegend_.at(static_cast<std::size_t>(series)) = shown;
    LayOut(size());
}

void ChartPlot::ShowLimits(const ChartLimits& limits)
{
    // The library takes no empty range.
    const double begin = limits.bottomMinimum * kDaySeconds;
    xAxis->setRange(begin, std::max(begin + 1, limits.bottomMaximum * kDaySeconds));
    const double highest = limits.leftMaximum;
    yAxis->setRange(limits.leftMinimum, highest > limits.leftMinimum ? highest : limits.leftMinimum + 1);
}

void ChartPlot::AddPoint(std::int16_t series, ChartTime time, double value)
{
    if (std::isfinite(time) && std::isfinite(value))
        graph(series)->addData(time * kDaySeconds, value);
}

void ChartPlot::ClearPoints()
{
    for (int series = 0; series < kChartSeriesCount; ++series)
        graph(series)->data()->clear();
}

/// A point without a value: the library and `LineSeries` begin a new line behind it.
void ChartPlot::BreakLines()
{
    for (int series = 0; series < kChartSeriesCount; ++series) {
        const auto points = graph(series)->data();
        if (series != kRelativeIntegratedSeries && !points->isEmpty())
            graph(series)->addData((points->constEnd() - 1)->key, std::nan(""));
    }
}

void ChartPlot::MakeStale()
{
    stale_ = true;
    update(); // the toolkit makes one painting of any number of these
}

void ChartPlot::RedrawNow()
{
    stale_ = false;
    replot(rpImmediateRefresh);
}

double ChartPlot::TimeAt(double x) const
{
    return xAxis->pixelToCoord(x) / kDaySeconds;
}

QPicture ChartPlot::Frozen(QSize pictureSize)
{
    QPicture picture;
    if (pictureSize.isEmpty())
        return picture;
    QCPPainter painter;
    painter.begin(&picture);
    painter.setMode(QCPPainter::pmVectorized);
    LayOut(pictureSize);
    toPainter(&painter, pictureSize.width(), pictureSize.height());
    painter.end();
    LayOut(size());
    MakeStale(); // the places of everything are those of the other picture
    return picture;
}

void ChartPlot::paintEvent(QPaintEvent* event)
{
    if (stale_) {
        stale_ = false;
        replot(rpQueuedRefresh);
    }
    QCustomPlot::paintEvent(event);
}

void ChartPlot::resizeEvent(QResizeEvent*)
{
    LayOut(size());
    setViewport(rect());
    stale_ = true;
}

void ChartPlot::LayOut(QSize size)
{
    const int side = kFrame + size.width() * kSideMarginPercent / 100;
    plotLayout()->setMargins({side, kFrame + kBevel, side, kFrame});
    xAxis->ticker()->setTickCount(std::max(1, size.width() / kPixelsPerTimeLabel));
    yAxis->ticker()->setTickCount(std::max(1, size.height() / kPixelsPerValueLabel));
    ArrangeLegend(size);
}

void ChartPlot::ArrangeLegend(QSize size)
{
    legend->clearItems();
    QList<QCPGraph*> shown;
    for (std::int16_t series = 0; series < kChartSeriesCount; ++series)
        if (inLegend_.at(static_cast<std::size_t>(series)))
            shown += graph(series);

    const QFontMetrics metrics(legend->font());
    int columns = std::min(2, static_cast<int>(shown.size()));
    int symbol = 0;
    for (; columns > 0; --columns) {
        std::array<int, 2> widths{};
        for (int i = 0; i < shown.size(); ++i) {
            int& width = widths.at(static_cast<std::size_t>(i % columns));
            width = std::max(width, metrics.horizontalAdvance(shown[i]->name()));
        }
        const int texts = widths[0] + widths[1] + columns * legend->iconTextPadding() +
                          (columns - 1) * legend->columnSpacing() + kLegendMargins.left() +
                          kLegendMargins.right();
        symbol = texts * kSymbolPercent / (100 - columns * kSymbolPercent);
        if (texts + columns * symbol <= size.width() * 9 / 10)
            break;
    }
    const int rows = columns > 0 ? (static_cast<int>(shown.size()) + columns - 1) / columns : 0;
    const bool fits = rows > 0 && rows * metrics.height() < size.height() / 3;
    legend->setVisible(fits);
    legend->setMargins(fits ? kLegendMargins : QMargins());
    if (!fits)
        return;
    legend->setIconSize(symbol, metrics.height());
    legend->setWrap(columns);
    for (QCPGraph* const line : shown)
        line->addToLegend(legend);
}

void ChartPlot::DrawFrame(QCPPainter* painter) const
{
    const QRect outer = viewport();
    DrawBevel(painter, outer, kBevelDark, kBevelLight); // lowered
    const QRect border = outer.adjusted(kBevel, kBevel, -kBevel, -kBevel);
    painter->setPen(QPen(Qt::black, kBorder));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(border.adjusted(0, 0, -1, -1));
    DrawBevel(painter, border.adjusted(kBorder, kBorder, -kBorder, -kBorder), kBevelLight, kBevelDark);
}

void ChartPlot::DrawAxisTitle(QCPPainter* painter) const
{
    if (view_ == ChartView::None)
        return;
    const QString title = view_ == ChartView::Relative ? relativeTitle_ : massTitle_;
    const int length = QFontMetrics(yAxis->labelFont()).horizontalAdvance(title);
    const QRect area = CurveArea();
    painter->save();
    painter->setFont(yAxis->labelFont());
    painter->setPen(Qt::black);
    // Beside the middle of the axis, or of the whole chart where the axis is shorter than its title.
    painter->translate(axisRect()->outerRect().left(),
                       (length < area.height() ? area : viewport()).center().y());
    painter->rotate(-90);
    painter->drawText(QRect(-length / 2, 0, length, kTitleArea), Qt::AlignCenter, title);
    painter->restore();
}

void ChartPlot::DrawNotice(QCPPainter* painter) const
{
    if (!simulated_)
        return;
    const QRect area = CurveArea();
    QFont font = TextFont(kNoticePixels);
    font.setBold(true);
    const int length = QFontMetrics(font).horizontalAdvance(notice_) + 4 * kNoticeMargin;
    if (length > area.width()) // rather small than cut off
        font.setPixelSize(std::max(1, kNoticePixels * area.width() / length));
    painter->setFont(font);
    QRect box = QFontMetrics(font).boundingRect(notice_).adjusted(-2 * kNoticeMargin, -kNoticeMargin,
                                                                  2 * kNoticeMargin, kNoticeMargin);
    box.moveCenter({area.center().x(), area.top() + box.height() / 2 + 6});
    painter->setPen(QPen(kNoticeRed, 2));
    painter->setBrush(Qt::NoBrush); // the curves are seen through it
    painter->drawRect(box);
    painter->setPen(kNoticeRed);
    painter->drawText(box, Qt::AlignCenter, notice_);
}

} // namespace quorvane
