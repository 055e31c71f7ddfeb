#include "graph/LiveChart.h"

#include "measure/Gaps.h"
#include "resources/SystemTexts.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace quorvane {

namespace {

constexpr double kRelativeStart = 50; ///< CPM; where the value axis begins, and where a reset puts it
constexpr double kMassStart = 1;      ///< mg/m3
constexpr double kSpans[] = {0.0006, 0.007, 0.04, 0.2}; ///< days
constexpr double kClampedSpan = 0.0006;                 ///< days

/// The curves of a reading get their points in this order.
constexpr ChartSeries kPointOrder[] = {kRelativeSeries, kRelativeIntegratedSeries, kTwaSeries, kStelSeries,
                                       kMassSeries,     kMassIntegratedSeries};

struct AlarmLine {
    bool GraphFlags::*flag;
    double AlarmLimits::*level;
    LineStyle style;
};
constexpr AlarmLine kAlarmLines[] = {
    {&GraphFlags::AlarmTWAFlg, &AlarmLimits::TwaAlarm, LineStyle::DashDot},
    {&GraphFlags::AlarmSTELFlg, &AlarmLimits::StelAlarm, LineStyle::Dash},
    {&GraphFlags::AlarmCFlg, &AlarmLimits::CAlarm, LineStyle::Solid},
};

/// `value` and 30 percent of it, in whole counts.
double WithMargin(double value)
{
    return std::floor(0.3 * value + value);
}

/// Calls `place` with series and value of each point that reading `sample` has.
template <class Place>
void ForPoints(const MeasurementArrays& arrays, const GraphFlags& flags, int sample, Place place)
{
    for (const ChartSeries series : kPointOrder) {
        const Curve& curve = kCurves[series];
        if (IsCharted(curve, flags, arrays))
            place(series, (arrays.*curve.values)[static_cast<std::size_t>(sample)]);
    }
}

} // namespace

LiveChart::LiveChart(const ApplicationState& state, const MeasurementArrays& arrays, ChartControl& control)
    : state_(state), arrays_(arrays), control_(control)
{
    control_.OnRedraw([this] { DrawAlarmLines(); });
    control_.OnRedrawBehind([this] { DrawGaps(); });
    control_.OnUserZoom([this] { ClampTimeAxis(); });
}

// ---- a run ----------------------------------------------------------------------------------------------

/// The time axis waits for the first reading: a run that cannot start shows the earlier ones again.
void LiveChart::PrepareRun()
{
    readings_ = 0;
    TurnZoomOff();
    control_.ClearPoints();
    ShowFlags();
    control_.SetSimulated(!state_.RunMode);
    axisReset_ = AxisReset::Done;
}

void LiveChart::AddReading()
{
    const int sample = state_.SampleCount;
    const ChartTime time = TimeOf(sample);
    readings_ = sample;
    ScrollTimeAxis(time);
    BreakAtGap(sample);
    ForPoints(arrays_, state_, sample, [&](ChartSeries series, double value) {
        if (series == kRelativeIntegratedSeries)
            AddBarPoint(series, time, value);
        else
            AddLinePoint(series, value);
    });
    CheckAxisReset();
}

void LiveChart::Rebuild()
{
    readings_ = arrays_.Dated ? state_.SampleCount : 0;
    control_.SetAutoRepaint(false);
    control_.UndoZoom(); // it belongs to the values of the view that was there
    control_.ClearPoints();
    ShowFlags();
    control_.SetSimulated(ShowsSimulated(state_, arrays_));
    ReplayReadings();
    control_.SetAutoRepaint(true);
    control_.Repaint();
}

/// The same points and the same growth as in the run, but for two things: no repaint for each of them, and no
/// look at the axis reset. That would take the axis back to its start behind the first reading that is larger
/// and leave the later ones out of sight; the next run settles the request.
void LiveChart::ReplayReadings()
{
    for (int sample = 1; sample <= readings_; ++sample) {
        const ChartTime time = TimeOf(sample);
        BreakAtGap(sample);
        ForPoints(arrays_, state_, sample, [&](ChartSeries series, double value) {
            if (series == kRelativeIntegratedSeries) {
                AddBarPoint(series, time, value);
                return;
            }
            control_.AddPoint(series, time, value);
            RaiseForLine(value);
        });
    }
}

void LiveChart::ShowData()
{
    TurnZoomOff();
    Rebuild();
    if (readings_ == 0)
        return;
    RunStartTime = TimeOf(1);
    ShowWholeRun();
}

void LiveChart::FlagsEdited(ChartView before)
{
    if (before == ChartView::Mass && ViewOf(state_) == ChartView::Relative)
        axisReset_ = AxisReset::Pending;
    Rebuild();
}

/// View, legend and start of the value axis, as the flags want them.
void LiveChart::ShowFlags()
{
    const ChartView view = ViewOf(state_);
    control_.SetView(view);
    for (std::int16_t series = 0; series < kChartSeriesCount; ++series)
        control_.SetInLegend(series, IsCharted(kCurves[static_cast<std::size_t>(series)], state_));
    if (view != ChartView::None)
        control_.SetLeftMaximum(view == ChartView::Relative ? kRelativeStart : kMassStart);
}

// ---- the operator ---------------------------------------------------------------------------------------

void LiveChart::SelectSpan(int number)
{
    if (number < 1 || number > static_cast<int>(std::size(kSpans)))
        return;
    span_ = number;
    TimeSpan = kSpans[number - 1];
    if (readings_ == 0)
        return;
    const ChartTime first = TimeOf(1);
    const ChartTime newest = TimeOf(readings_);
    if (newest > first + TimeSpan)
        SetTimeAxis(newest - TimeSpan, newest);
    else
        SetTimeAxis(first, first + TimeSpan);
}

void LiveChart::ShowWholeRun()
{
    if (readings_ == 0)
        return;
    const ChartTime first = TimeOf(1);
    const ChartTime newest = TimeOf(readings_);
    SetTimeAxis(first, newest > first ? newest : first + TimeSpan);
}

void LiveChart::ToggleZoom()
{
    if (zoomOn_) {
        TurnZoomOff();
        return;
    }
    control_.SetMouseZoom(true);
    zoomOn_ = true;
}

void LiveChart::TurnZoomOff()
{
    control_.UndoZoom();
    control_.SetMouseZoom(false);
    zoomOn_ = false;
}

int LiveChart::ZoomCaptionId() const
{
    return zoomOn_ ? kZoomOffText : kZoomOnText;
}

// ---- the steps of a reading -----------------------------------------------------------------------------

void LiveChart::ScrollTimeAxis(ChartTime sampleTime)
{
    if (state_.SampleCount == 1) {
        // What is there may lie later, after a computer's clock was set back: the new end must not come
        // before the old beginning.
        if (sampleTime + TimeSpan < control_.BottomMinimum())
            control_.SetBottomMinimum(0);
        control_.SetBottomMaximum(sampleTime + TimeSpan);
        control_.SetBottomMinimum(sampleTime);
        RunStartTime = sampleTime;
    }
    if (sampleTime > control_.BottomMaximum()) {
        control_.SetBottomMaximum(sampleTime);
        control_.SetBottomMinimum(sampleTime - TimeSpan);
    }
}

void LiveChart::AddLinePoint(std::int16_t series, double value)
{
    control_.SetAutoRepaint(false);
    control_.AddPoint(series, TimeOf(state_.SampleCount), value);
    control_.SetAutoRepaint(true);
    control_.Repaint();
    RaiseForLine(value);
}

void LiveChart::BreakAtGap(int sample)
{
    if (std::ranges::any_of(GapsBefore(arrays_, sample), LosesReadings, &RunGap::kind))
        control_.BreakLines();
}

void LiveChart::RaiseForLine(double value)
{
    const double top = control_.LeftMaximum();
    switch (ViewOf(state_)) {
    case ChartView::None:
        break;
    case ChartView::Relative:
        // The test rounds the margin alone and the new maximum rounds the sum. That is meant: 10.5 is more
        // than 13 allows, and yet the axis stays at 13.
        if (std::floor(0.3 * value) + value > top)
            control_.SetLeftMaximum(WithMargin(value));
        break;
    case ChartView::Mass:
        if (value >= top)
            control_.SetLeftMaximum(1.2 * value);
        break;
    }
}

void LiveChart::AddBarPoint(std::int16_t series, ChartTime time, double value)
{
    control_.AddPoint(series, time, value);
    if (value > control_.LeftMaximum())
        control_.SetLeftMaximum(WithMargin(value));
}

void LiveChart::CheckAxisReset()
{
    if (axisReset_ != AxisReset::Pending || ViewOf(state_) != ChartView::Relative ||
        control_.LeftMaximum() <= kRelativeStart)
        return;
    control_.SetLeftMaximum(kRelativeStart);
    axisReset_ = AxisReset::Done;
}

/// Which of the views is shown does not matter: the lines are asked for by their own flags.
void LiveChart::DrawAlarmLines()
{
    if (ViewOf(state_) == ChartView::None)
        return;
    for (const AlarmLine& line : kAlarmLines) {
        const double level = state_.*line.level;
        if (state_.*line.flag && control_.LeftMaximum() >= level)
            control_.DrawLevel(line.style, level);
    }
}

void LiveChart::DrawGaps()
{
    if (readings_ == 0 || ViewOf(state_) == ChartView::None)
        return;
    std::pair<ChartTime, ChartTime> drawn;
    for (const RunGap& gap : arrays_.Gaps) {
        const std::pair<ChartTime, ChartTime> span = SpanOf(gap);
        if (span == drawn || span.second < control_.BottomMinimum() || span.first > control_.BottomMaximum())
            continue;
        control_.DrawGap(span.first, span.second);
        drawn = span;
    }
}

/// By the times of the readings, which are the instrument's; those of the gap are the computer's and may
/// differ from them by any amount, so only its length is taken from them.
std::pair<ChartTime, ChartTime> LiveChart::SpanOf(const RunGap& gap) const
{
    const bool ended = gap.before <= readings_;
    if (!LosesReadings(gap.kind)) {
        const ChartTime at = TimeOf(ended ? gap.before : readings_);
        return {at, at};
    }
    const ChartTime length = std::max(0.0, ToChartTime(gap.to) - ToChartTime(gap.from));
    const ChartTime begin = gap.before > 1 ? TimeOf(ended ? gap.before - 1 : readings_) : TimeOf(1) - length;
    return {begin, ended ? std::max(begin, TimeOf(gap.before)) : begin + length};
}

/// The width is the same for every span, on purpose: it leads back to where the run began.
void LiveChart::ClampTimeAxis()
{
    if (control_.BottomMinimum() < RunStartTime)
        SetTimeAxis(RunStartTime, RunStartTime + kClampedSpan);
}

/// The limit that leaves room for the other goes first: the minimum never lies above the maximum.
void LiveChart::SetTimeAxis(ChartTime begin, ChartTime end)
{
    if (begin > control_.BottomMaximum()) {
        control_.SetBottomMaximum(end);
        control_.SetBottomMinimum(begin);
    } else {
        control_.SetBottomMinimum(begin);
        control_.SetBottomMaximum(end);
    }
}

ChartTime LiveChart::TimeOf(int sample) const
{
    return ToChartTime(arrays_.Moment[static_cast<std::size_t>(sample)]);
}

// ---- times ----------------------------------------------------------------------------------------------

int NearestReading(const MeasurementArrays& arrays, int count, ChartTime time)
{
    const int known = std::min(count, static_cast<int>(arrays.Moment.size()) - 1);
    if (known < 1 || !arrays.Dated)
        return 0;
    const auto first = std::next(arrays.Moment.begin());
    const auto last = std::next(first, known - 1);
    const auto after = std::ranges::lower_bound(first, last, time, {}, ToChartTime);
    const bool before = after != first && time - ToChartTime(*std::prev(after)) <= ToChartTime(*after) - time;
    return static_cast<int>(std::distance(first, after)) + (before ? 0 : 1);
}

ChartTime ToChartTime(LocalMoment moment)
{
    return std::chrono::duration<ChartTime, std::chrono::days::period>(moment.time_since_epoch()).count();
}

} // namespace quorvane
