#pragma once

#include "app/ApplicationState.h"
#include "graph/ChartControl.h"
#include "graph/Curves.h"
#include "measure/MeasurementArrays.h"

#include <utility>

namespace quorvane {

/// The rules of the live chart: which points a reading adds, how the axes move, which alarm lines are drawn.
class LiveChart {
public:
    /// Takes the control's handlers for itself; the control must not redraw once this is gone. `Rebuild`
    /// makes the first picture.
    LiveChart(const ApplicationState& state, const MeasurementArrays& arrays, ChartControl& control);
    LiveChart(const LiveChart&) = delete;
    LiveChart& operator=(const LiveChart&) = delete;

    // ---- a run ----
    /// A run is about to begin: the chart is empty, zoom is off, the value axis starts at 50 in the relative
    /// view and at 1 in the mass view, and an axis reset that was asked for counts as done.
    void PrepareRun();
    /// Reading `SampleCount` of the state is complete: moves the time axis, adds its points, checks the axis
    /// reset.
    void AddReading();
    /// Makes all points anew from the arrays' readings 1 to `SampleCount`, with a value axis as if they had
    /// been measured with the present flags. A zoom is undone; the time axis stays otherwise. Without dates
    /// (`Dated`) there are no points. Not while a run is under way.
    void Rebuild();
    /// The same for other readings than before: zoom is off and the time axis shows them all.
    void ShowData();
    /// The flags have been edited; `before` is the view that was there. Asks for an axis reset when it went
    /// from mass to relative, and rebuilds.
    void FlagsEdited(ChartView before);
    /// Readings that the chart shows, from 1: in a run the complete ones, when `SampleCount` may be one
    /// ahead; 0 without dates.
    [[nodiscard]] int Readings() const { return readings_; }

    // ---- the operator ----
    /// 1: about 52 s, 2: about 10 min, 3: about 58 min, 4: 4.8 h; another number changes nothing. The newest
    /// readings are shown in that width at once; they begin at the left as long as all of them fit.
    void SelectSpan(int number);
    [[nodiscard]] int Span() const { return span_; }
    /// The time axis goes from the first reading to the last, or has the width of the span when there is only
    /// one time to show.
    void ShowWholeRun();
    void ToggleZoom();
    [[nodiscard]] bool ZoomOn() const { return zoomOn_; }
    /// Number of the zoom button's caption: 226 "Zoom On" or 227 "Zoom Off". A click does what it says.
    [[nodiscard]] int ZoomCaptionId() const;

    // ---- the steps of a reading; public for their tests ----
    void ScrollTimeAxis(ChartTime sampleTime);
    void AddLinePoint(std::int16_t series, double value);
    void AddBarPoint(std::int16_t series, ChartTime time, double value);
    void CheckAxisReset();
    void DrawAlarmLines();
    /// Marks the gaps between readings: from the reading before to the one behind, and as long as it lasted
    /// where there is no reading on one side. A clock that was set is a line, for nothing is missing there.
    void DrawGaps();
    void ClampTimeAxis();

private:
    enum class AxisReset { Done = 1, Pending = 2 };

    void ShowFlags();
    void ReplayReadings();
    void TurnZoomOff();
    void BreakAtGap(int sample);
    void RaiseForLine(double value);
    void SetTimeAxis(ChartTime begin, ChartTime end);
    [[nodiscard]] std::pair<ChartTime, ChartTime> SpanOf(const RunGap& gap) const;
    [[nodiscard]] ChartTime TimeOf(int sample) const;

    const ApplicationState& state_;
    const MeasurementArrays& arrays_;
    ChartControl& control_;
    ChartTime RunStartTime = 0;
    double TimeSpan = 0.0006; ///< days
    int span_ = 1;
    int readings_ = 0;
    bool zoomOn_ = false;
    AxisReset axisReset_ = AxisReset::Done;
};

/// The reading nearest to `time` among readings 1 to `count`, whose date-times never run backwards; of
/// equally near ones any.
/// @return its number, or 0 without readings or without dates
[[nodiscard]] int NearestReading(const MeasurementArrays& arrays, int count, ChartTime time);

/// Days since the beginning of 1970.
[[nodiscard]] ChartTime ToChartTime(LocalMoment moment);

} // namespace quorvane
