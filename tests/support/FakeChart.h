#pragma once

#include "graph/ChartControl.h"
#include "graph/LiveChart.h"

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace quorvane {

/// A chart without a picture: it keeps what it was told, and fails the test when an axis is turned round.
class FakeChart : public ChartControl {
public:
    struct Point {
        std::int16_t series;
        ChartTime time;
        double value;
        bool operator==(const Point&) const = default;
    };
    struct Limits {
        ChartTime begin = 0, end = 1;
        double top = 10;
        bool operator==(const Limits&) const = default;
    };

    Limits limits; ///< as shown
    std::vector<Point> points;
    ChartView view = ChartView::None;
    std::array<bool, kChartSeriesCount> inLegend{};
    bool simulated = false;
    bool mouseZoom = false;
    int repaints = 0;
    std::vector<std::string> calls; ///< what changes the picture, in order
    std::vector<std::pair<LineStyle, double>> levels;
    std::vector<std::pair<ChartTime, ChartTime>> gaps;

    /// The operator zooms.
    void Zoom(Limits to)
    {
        inZoom_ = true;
        limits = to;
        onUserZoom_();
        inZoom_ = false;
    }
    void Redraw()
    {
        levels.clear();
        gaps.clear();
        onRedrawBehind_();
        onRedraw_();
    }

    [[nodiscard]] ChartTime BottomMinimum() const override { return limits.begin; }
    [[nodiscard]] ChartTime BottomMaximum() const override { return limits.end; }
    [[nodiscard]] double LeftMaximum() const override { return limits.top; }
    void SetBottomMinimum(ChartTime time) override { Set(&Limits::begin, time, "begin"); }
    void SetBottomMaximum(ChartTime time) override { Set(&Limits::end, time, "end"); }
    void SetLeftMaximum(double value) override { Set(&Limits::top, value, "top"); }
    void SetView(ChartView shown) override { view = shown; }
    void AddPoint(std::int16_t series, ChartTime time, double value) override
    {
        calls.push_back("point " + std::to_string(series));
        points.push_back({series, time, value});
    }
    void ClearPoints() override { points.clear(); }
    void BreakLines() override { calls.emplace_back("break"); }
    void SetInLegend(std::int16_t series, bool shown) override
    {
        inLegend.at(static_cast<std::size_t>(series)) = shown;
    }
    void SetSimulated(bool madeUp) override { simulated = madeUp; }
    void SetAutoRepaint(bool on) override { calls.emplace_back(on ? "on" : "off"); }
    void Repaint() override
    {
        calls.emplace_back("repaint");
        ++repaints;
    }
    void SetMouseZoom(bool on) override { mouseZoom = on; }
    void UndoZoom() override { limits = given_; }
    void OnRedraw(std::function<void()> handler) override { onRedraw_ = std::move(handler); }
    void OnRedrawBehind(std::function<void()> handler) override { onRedrawBehind_ = std::move(handler); }
    void OnUserZoom(std::function<void()> handler) override { onUserZoom_ = std::move(handler); }
    void DrawLevel(LineStyle style, double level) override { levels.emplace_back(style, level); }
    void DrawGap(ChartTime begin, ChartTime end) override { gaps.emplace_back(begin, end); }

private:
    void Set(double Limits::*limit, double value, const char* call)
    {
        calls.emplace_back(call);
        limits.*limit = value;
        if (!inZoom_)
            given_.*limit = value;
        EXPECT_LE(limits.begin, limits.end) << call;
    }

    Limits given_; ///< last outside a zoom
    bool inZoom_ = false;
    std::function<void()> onRedraw_;
    std::function<void()> onRedrawBehind_;
    std::function<void()> onUserZoom_;
};

/// Those that are set, of all display and alarm flags.
using Flags = std::vector<bool GraphFlags::*>;

/// A chart with its rules, and readings to give it.
struct ChartWorld {
    ApplicationState state;
    MeasurementArrays arrays;
    FakeChart control;
    LiveChart chart{state, arrays, control};

    explicit ChartWorld(std::int32_t readings = 100) { arrays.Create(readings); }

    /// `seconds` after 2024-05-01 00:00.
    static LocalMoment At(int seconds)
    {
        return std::chrono::local_days(std::chrono::year(2024) / 5 / 1) + std::chrono::seconds(seconds);
    }
    /// The same in days since 1970: 54 years with 13 leap days, and 121 days of 2024.
    static ChartTime Days(int seconds) { return ((54 * 365 + 13 + 121) * 86400.0 + seconds) / 86400; }

    /// Fills the next reading: `value` relative, a tenth of it mg/m3.
    void Give(int seconds, double value)
    {
        const auto i = static_cast<std::size_t>(++state.SampleCount);
        arrays.Moment[i] = At(seconds);
        arrays.CountValue[i] = value;
        arrays.ConcValue[i] = value / 10;
        arrays.DerivedValueA[i] = value / 20;
        arrays.DerivedValueB[i] = value / 40;
        arrays.IntegratedCount[i] = arrays.IntegratedCount[i - 1] + value;
        arrays.IntegratedConc[i] = arrays.IntegratedConc[i - 1] + value / 10;
    }
    /// The same in a run.
    void Measure(int seconds, double value)
    {
        Give(seconds, value);
        chart.AddReading();
    }
    void Choose(const Flags& flags)
    {
        static_cast<GraphFlags&>(state) = {};
        for (bool GraphFlags::*flag : flags)
            state.*flag = true;
    }
};

} // namespace quorvane
