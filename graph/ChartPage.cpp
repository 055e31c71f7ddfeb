#include "graph/ChartPage.h"

#include "app/QtText.h"
#include "files/NumberText.h"
#include "instrument/DateTimeText.h"
#include "measure/Gaps.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace quorvane {
namespace {

// In 1/96 inch: the printable part of an A4 sheet, and what stands on it.
constexpr int kLongSide = 1047;
constexpr int kShortSide = 718;
constexpr int kTitlePixels = 20;
constexpr int kPageTextPixels = 13;
constexpr int kTitleHeight = 32;
constexpr int kLineHeight = 19;
constexpr std::size_t kFactRows = 4;
constexpr int kHeadingHeight = kTitleHeight + (static_cast<int>(kFactRows) + 1) * kLineHeight + 8;

QString MomentOf(const MeasurementArrays& arrays, std::size_t reading, const LocaleItems& locale)
{
    if (arrays.Dated)
        return Shown(SystemDateTimeText(arrays.Moment.at(reading), locale));
    return Shown(arrays.FileDate + " " + arrays.MeasureTime.at(reading));
}

/// Readings that are complete; the number counts one that is still awaited.
std::size_t CompleteReadings(std::int32_t count, const MeasurementArrays& arrays)
{
    if (count <= 0 || arrays.Moment.empty())
        return 0;
    const std::size_t last = std::min(static_cast<std::size_t>(count), arrays.Moment.size() - 1);
    const bool awaited = arrays.Dated && arrays.Moment[last] == LocalMoment{};
    return awaited ? last - 1 : last;
}

QString FactorOf(const MeasurementArrays& arrays, const std::string& decimalSign)
{
    if (arrays.ExtraField.size() < 2 || arrays.ExtraField[1].empty())
        return {};
    return Shown(GeneralText(LeadingNumber(arrays.ExtraField[1]) / 1000, decimalSign));
}

QFont PageFont(QFont font, int pixels, bool bold)
{
    font.setPixelSize(pixels); // of the page's own unit, not of the paper's resolution
    font.setBold(bold);
    return font;
}

/// How far from filling a place of the shape `wanted` a picture is: 0 when it fills it.
double Misfit(const FrozenChart& chart, const QSizeF& wanted)
{
    return std::abs(std::log(chart.size.width() * wanted.height() / (chart.size.height() * wanted.width())));
}

void PaintFacts(QPainter& painter, const QRectF& place, const std::vector<PageFact>& facts)
{
    const double column = place.width() / 2;
    for (std::size_t first = 0; first < facts.size(); first += kFactRows) {
        const std::size_t end = std::min(first + kFactRows, facts.size());
        int captions = 0;
        for (std::size_t i = first; i < end; ++i)
            captions = std::max(captions, painter.fontMetrics().horizontalAdvance(facts[i].caption));
        QRectF line(place.left() + (first > 0 ? column : 0), place.top(), column, kLineHeight);
        for (std::size_t i = first; i < end; ++i) {
            painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, facts[i].caption);
            painter.drawText(line.adjusted(captions + kLineHeight, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                             facts[i].value);
            line.translate(0, kLineHeight);
        }
    }
}

void PaintChart(QPainter& painter, const QRectF& place, const std::vector<FrozenChart>& charts)
{
    const auto best = std::ranges::min_element(
        charts, {}, [&](const FrozenChart& chart) { return Misfit(chart, place.size()); });
    if (best == charts.end() || best->size.isEmpty())
        return;
    const QSizeF shown = QSizeF(best->size).scaled(place.size(), Qt::KeepAspectRatio);
    painter.save();
    painter.translate(place.left() + (place.width() - shown.width()) / 2, place.top());
    painter.scale(shown.width() / best->size.width(), shown.width() / best->size.width());
    PaintFrozen(painter, *best);
    painter.restore();
}

} // namespace

void PaintFrozen(QPainter& painter, const FrozenChart& chart)
{
    // The toolkit enlarges a picture by the resolution of what it is painted on; the painter has done so.
    const QPaintDevice& paper = *painter.device();
    painter.save();
    painter.scale(static_cast<double>(chart.picture.logicalDpiX()) / paper.logicalDpiX(),
                  static_cast<double>(chart.picture.logicalDpiY()) / paper.logicalDpiY());
    painter.drawPicture(0, 0, chart.picture);
    painter.restore();
}

std::vector<PageFact> ChartFacts(const ApplicationState& state, const MeasurementArrays& arrays,
                                 const Texts& texts, const LocaleItems& locale)
{
    const std::string decimalSign = locale.DecimalSign();
    const std::size_t count = CompleteReadings(state.SampleCount, arrays);
    const auto moment = [&](std::size_t reading) {
        return count > 0 ? MomentOf(arrays, reading, locale) : QString();
    };
    const auto caption = [&](int id) { return Shown(texts[id]); };
    const auto limit = [&](double value) { return Shown(GeneralText(value, decimalSign)); };
    std::vector<PageFact> facts = {
        {caption(kFirstReadingText), moment(1)},
        {caption(kLastReadingText), moment(count)},
        {caption(kReadingCountText), QString::number(count)},
        {caption(kFactorText), FactorOf(arrays, decimalSign)},
        {caption(kTwaLimitText), limit(state.TwaAlarm)},
        {caption(kStelLimitText), limit(state.StelAlarm)},
        {caption(kCeilingLimitText), limit(state.CAlarm)},
    };
    if (const auto gaps = std::ranges::count_if(arrays.Gaps, LosesReadings, &RunGap::kind); gaps > 0)
        facts.push_back({caption(kGapsText), QString::number(gaps)}); // what the hatching is
    return facts;
}

std::vector<QSize> UsualChartSizes()
{
    return {{kLongSide, kShortSide - kHeadingHeight}, {kShortSide, kLongSide - kHeadingHeight}};
}

void PaintChartPage(QPainter& painter, const QRectF& area, const ChartPage& page)
{
    if (area.isEmpty())
        return;
    const double unit = std::max(area.width(), area.height()) / kLongSide;
    const QSizeF size = area.size() / unit;
    painter.save();
    painter.translate(area.topLeft());
    painter.scale(unit, unit);
    painter.setPen(Qt::black);
    painter.setFont(PageFont(page.font, kTitlePixels, true));
    painter.drawText(QRectF(0, 0, size.width(), kTitleHeight), Qt::AlignLeft | Qt::AlignTop, page.title);
    painter.setFont(PageFont(page.font, kPageTextPixels, false));
    PaintFacts(painter, {0, kTitleHeight, size.width(), kFactRows * kLineHeight}, page.facts);
    painter.setPen(QColor(176, 0, 0));
    painter.setFont(PageFont(page.font, kPageTextPixels, true));
    painter.drawText(QRectF(0, kTitleHeight + kFactRows * kLineHeight, size.width(), kLineHeight),
                     Qt::AlignLeft | Qt::AlignVCenter, page.notice);
    PaintChart(painter, {0, kHeadingHeight, size.width(), size.height() - kHeadingHeight}, page.charts);
    painter.restore();
}

} // namespace quorvane
