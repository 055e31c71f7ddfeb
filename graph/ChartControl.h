#pragma once

#include <cstdint>
#include <functional>

namespace quorvane {

/// A date-time in days since the beginning of 1970, local time; 0 lies before every reading.
using ChartTime = double;

/// Position of a series in the chart's list, by which all code addresses it. The operators' names for the
/// series are numbered otherwise (the bars are `Series1`), so the position counts and nothing else.
enum ChartSeries : std::int16_t {
    kRelativeSeries = 0,           ///< `Series0`, CPM
    kMassSeries = 1,               ///< `Series2`, mg/m3, compared with the ceiling
    kTwaSeries = 2,                ///< `Series3`, mg/m3
    kStelSeries = 3,               ///< `Series4`, mg/m3
    kRelativeIntegratedSeries = 4, ///< `Series1`, CPM, bars
    kMassIntegratedSeries = 5,     ///< `Series5`, mg/m3
};
inline constexpr std::int16_t kChartSeriesCount = 6;

/// What the chart shows: relative and mass concentrations exclude each other.
enum class ChartView { None, Relative, Mass };

enum class LineStyle { Solid, Dash, DashDot };

/// The chart as its rules see it: two axes, six series, a canvas for the alarm lines, zoom by mouse. Nothing
/// here decides anything, and a repaint is only asked for: the control may put several off into one.
class ChartControl {
public:
    virtual ~ChartControl() = default;

    /// Limits of the time axis as shown. The minimum must never lie above the maximum, not even between two
    /// calls. A limit that is set while the zoom handler runs is part of the zoom and undone with it.
    [[nodiscard]] virtual ChartTime BottomMinimum() const = 0;
    [[nodiscard]] virtual ChartTime BottomMaximum() const = 0;
    virtual void SetBottomMinimum(ChartTime time) = 0;
    virtual void SetBottomMaximum(ChartTime time) = 0;
    /// Upper limit of the value axis as shown; the lower one is 0 but for a zoom.
    [[nodiscard]] virtual double LeftMaximum() const = 0;
    virtual void SetLeftMaximum(double value) = 0;
    /// Title and smallest label step of the value axis: a step is at least 1 in the relative view.
    virtual void SetView(ChartView view) = 0;

    /// Adds a point. One whose time lies before the last one's is sorted in.
    virtual void AddPoint(std::int16_t series, ChartTime time, double value) = 0;
    virtual void ClearPoints() = 0;
    /// Leaves out the line from the last point to the next one, of all curves that are lines.
    virtual void BreakLines() = 0;
    /// Whether the series has a place in the legend.
    virtual void SetInLegend(std::int16_t series, bool shown) = 0;
    /// Whether the picture says that its values are made up; it says so on the screen, on paper and in files.
    virtual void SetSimulated(bool simulated) = 0;

    /// While off, changes ask for no repaint of their own.
    virtual void SetAutoRepaint(bool on) = 0;
    virtual void Repaint() = 0;

    /// Switches zooming by mouse and keys on or off; a zoom that is there stays.
    virtual void SetMouseZoom(bool on) = 0;
    /// The axes go back to the limits that they were given last outside a zoom.
    virtual void UndoZoom() = 0;

    /// `handler` runs at the end of every redraw, on the screen and elsewhere, and may call `DrawLevel`.
    virtual void OnRedraw(std::function<void()> handler) = 0;
    /// `handler` runs in every redraw before the curves are drawn, and may call `DrawGap`.
    virtual void OnRedrawBehind(std::function<void()> handler) = 0;
    /// `handler` runs after the operator has zoomed or scrolled.
    virtual void OnUserZoom(std::function<void()> handler) = 0;
    /// Draws a horizontal line of pure red, one pixel wide, across the whole time axis. Only while redrawing.
    virtual void DrawLevel(LineStyle style, double level) = 0;
    /// Hatches the whole height between two times, both marked by a dashed line; a single such line where
    /// they are the same. Only while redrawing what is behind the curves.
    virtual void DrawGap(ChartTime begin, ChartTime end) = 0;
};

} // namespace quorvane
