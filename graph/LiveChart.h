#pragma once

#include "app/ApplicationState.h"
#include "graph/ChartControl.h"
#include "measure/MeasurementArrays.h"

namespace quorvane {

/// Which view the flags choose: one relative flag is enough for the relative view, whatever the others say.
[[nodiscard]] ChartView ViewOf(const GraphFlags& flags);

/// The rules of the live chart: which points a reading adds, how the axes move, which alarm lines are drawn.
class LiveChart {
public:
    /// Takes the control's handlers for itself.
    LiveChart(const ApplicationState& state, const MeasurementArrays& arrays, ChartControl& control);

    // ---- a run ----
    /// A run is about to begin: the chart is empty, zoom is off, the value axis starts at 50 in the relative
    /// view and at 1 in the mass view, and an axis reset that was asked for counts as done.
    void PrepareRun();
    /// Reading `SampleCount` of the state is complete: moves the time axis, adds its points, checks the axis
    /// reset.
    void AddReading();
    /// Makes all points anew from the arrays' readings 1 to `SampleCount`, with a value axis as if they had
    /// been measured with the present flags. The time axis stays. Without dates (`Dated`) there are none.
    void Rebuild();
    /// The same for other readings than before: the time axis shows them all.
    void ShowData();
    /// The flags have been edited; `before` is the view that was there. Asks for an axis reset when it went
    /// from mass to relative, and rebuilds.
    void FlagsEdited(ChartView before);

    // ---- the operator ----
    /// 1: about 52 s, 2: about 10 min, 3: about 58 min, 4: 4.8 h; another number changes nothing. The newest
    /// readings are shown in that width at once.
    void SelectSpan(int number);
    [[nodiscard]] int Span() const { return span_; }
    /// The time axis goes from the first reading to the last.
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
    void ClampTimeAxis();

private:
    enum class AxisReset { Done = 1, Pending = 2 };

    const ApplicationState& state_;
    const MeasurementArrays& arrays_;
    ChartControl& control_;
    ChartTime RunStartTime = 0;
    double TimeSpan = 0.0006; ///< days
    int span_ = 1;
    bool zoomOn_ = false;
    AxisReset axisReset_ = AxisReset::Done;
};

/// The reading nearest to `time` among readings 1 to `count`, by their date-times in order.
/// @return its number, or 0 without readings
[[nodiscard]] int NearestReading(const MeasurementArrays& arrays, int count, ChartTime time);

[[nodiscard]] ChartTime ToChartTime(LocalMoment moment);

} // namespace quorvane
