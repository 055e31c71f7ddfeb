#include "graph/LiveChart.h"

#include "tests/support/FakeChart.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using testing::ElementsAre;
using F = GraphFlags;
using Calls = std::vector<std::string>;

const Flags kBothRelative = {&F::RelativeCFlg, &F::RelativeIntegratedFlg};
const Flags kAllMass = {&F::MassCFlg, &F::MassIntegratedFlg, &F::MassTWAFlg, &F::MassSTELFlg};

std::vector<std::pair<int, double>> Values(const FakeChart& control)
{
    std::vector<std::pair<int, double>> values;
    for (const FakeChart::Point& point : control.points)
        values.emplace_back(point.series, point.value);
    return values;
}

TEST(LiveChart, AReadingAddsThePointsOfTheViewThatTheFlagsChoose)
{
    struct Row {
        const char* what;
        Flags flags;
        std::vector<std::pair<int, double>> points; // series by position
        std::array<bool, 6> inLegend;
    };
    const Row rows[] = {
        {"none", {}, {}, {}},
        {"alarms alone are no view", {&F::AlarmCFlg, &F::AlarmTWAFlg, &F::AlarmSTELFlg}, {}, {}},
        {"relative", kBothRelative, {{0, 8}, {4, 8}}, {true, false, false, false, true, false}},
        {"mass", kAllMass, {{2, 0.4}, {3, 0.2}, {1, 0.8}, {5, 0.8}}, {false, true, true, true, false, true}},
        {"relative goes before mass",
         {&F::RelativeIntegratedFlg, &F::MassCFlg, &F::MassTWAFlg},
         {{4, 8}},
         {false, false, false, false, true, false}},
        {"one of mass", {&F::MassSTELFlg}, {{3, 0.2}}, {false, false, false, true, false, false}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ChartWorld with;
        with.Choose(row.flags);
        with.chart.PrepareRun();
        with.Measure(60, 8);
        EXPECT_EQ(Values(with.control), row.points);
        EXPECT_EQ(with.control.inLegend, row.inLegend);
        for (const FakeChart::Point& point : with.control.points)
            EXPECT_EQ(point.time, ChartWorld::Days(60));
    }
}

TEST(LiveChart, EachStepOfAReadingIsInItsPlace)
{
    ChartWorld with;
    with.Choose(kBothRelative);
    with.chart.PrepareRun();
    with.Measure(0, 30);
    with.chart.FlagsEdited(ChartView::Mass); // asks for the axis reset
    with.control.calls.clear();
    with.Measure(60, 70);                                // outside the window; 100 integrated
    EXPECT_EQ(with.control.calls, (Calls{"end", "begin", // the window
                                         "off", "point 0", "on", "repaint", "top", // the line, to 91
                                         "point 4", "top",                         // the bar, to 130
                                         "top"}));                                 // the reset
    EXPECT_EQ(with.control.limits.top, 50);
}

TEST(LiveChart, ValueAxisGrowsByTheRuleOfItsSeries)
{
    struct Row {
        const char* what;
        Flags flags;
        double top, value, line, bar; // the maximum behind a line point and behind a bar
    };
    const Row rows[] = {
        {"well below", {&F::RelativeCFlg}, 50, 10, 50, 50},
        {"11 + 39 is just 50", {&F::RelativeCFlg}, 50, 39, 50, 50},
        {"12 + 40 is more", {&F::RelativeCFlg}, 50, 40, 52, 50},
        {"3 + 10.5 is more than 13, Int(13.65) is 13", {&F::RelativeCFlg}, 13, 10.5, 13, 13},
        {"and more than 13.4", {&F::RelativeCFlg}, 13.4, 10.5, 13, 13.4},
        {"a bar that reaches the top", {&F::RelativeIntegratedFlg}, 50, 50, 65, 50},
        {"a bar above it", {&F::RelativeIntegratedFlg}, 50, 51, 66, 66},
        {"mass below", {&F::MassCFlg}, 1, 0.999, 1, 1},
        {"mass at the top", {&F::MassCFlg}, 1.5, 1.5, 1.2 * 1.5, 1.5},
        {"mass above is not rounded", {&F::MassTWAFlg}, 1, 2.25, 1.2 * 2.25, 2},
        {"relative goes before mass", {&F::RelativeCFlg, &F::MassCFlg}, 2, 2, 2, 2},
        {"no view leaves the axis to bars", {}, 1, 10, 1, 13},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ChartWorld with;
        with.Give(0, 0);
        with.Choose(row.flags);
        with.control.limits.top = row.top;
        with.chart.AddLinePoint(kRelativeSeries, row.value);
        EXPECT_EQ(with.control.limits.top, row.line);
        with.control.limits.top = row.top;
        with.chart.AddBarPoint(kRelativeIntegratedSeries, 1, row.value);
        EXPECT_EQ(with.control.limits.top, row.bar);
        EXPECT_EQ(with.control.points.size(), 2U);
    }
}

TEST(LiveChart, ARunStartsWithAnEmptyChartOfItsView)
{
    struct Row {
        Flags flags;
        ChartView view;
        double top;
    };
    for (const Row& row : {Row{{&F::RelativeCFlg, &F::MassCFlg}, ChartView::Relative, 50},
                           Row{{&F::MassSTELFlg}, ChartView::Mass, 1}, Row{{}, ChartView::None, 10}}) {
        ChartWorld with;
        with.Choose(row.flags);
        with.Measure(60, 30000);
        with.control.limits.top = 10;
        with.chart.PrepareRun();
        EXPECT_TRUE(with.control.points.empty());
        EXPECT_EQ(with.chart.Readings(), 0);
        EXPECT_EQ(with.control.view, row.view);
        EXPECT_EQ(with.control.limits.top, row.top);
        EXPECT_TRUE(with.control.simulated);
        with.state.RunMode = true;
        with.chart.PrepareRun();
        EXPECT_FALSE(with.control.simulated);
    }
}

TEST(LiveChart, AxisResetWaitsForAnAxisAboveFiftyAndIsDoneOnce)
{
    ChartWorld with;
    const auto top = [&] { return with.control.limits.top; };
    with.Choose({&F::RelativeIntegratedFlg});
    with.chart.FlagsEdited(ChartView::Relative);
    with.Measure(0, 60);
    EXPECT_EQ(top(), 78) << "nobody asked";

    with.chart.FlagsEdited(ChartView::Mass);
    EXPECT_EQ(top(), 78) << "readings that are there stay in sight";
    with.Choose({&F::MassCFlg});
    with.chart.CheckAxisReset();
    EXPECT_EQ(top(), 78) << "a matter of the relative view";
    with.Choose({&F::RelativeIntegratedFlg});
    with.control.SetLeftMaximum(50);
    with.chart.CheckAxisReset();
    with.Measure(1, 40); // integrated 100
    EXPECT_EQ(top(), 50) << "raised to 130 and reset";
    with.Measure(2, 0);
    EXPECT_EQ(top(), 130) << "done";

    with.chart.FlagsEdited(ChartView::Mass);
    with.chart.PrepareRun();
    with.Measure(3, 0);
    EXPECT_EQ(top(), 130) << "a run's start settles it";
}

TEST(LiveChart, ARunThatCouldNotStartShowsTheEarlierOneAgain)
{
    for (const auto& flags : {kBothRelative, kAllMass}) {
        ChartWorld with;
        with.Choose(flags);
        with.chart.PrepareRun();
        with.Measure(0, 30);
        with.Measure(60, 70); // beyond the window, and above both axes
        with.arrays.Simulated = true;
        const auto points = with.control.points;
        const FakeChart::Limits limits = with.control.limits;

        with.state.RunMode = true;
        with.chart.PrepareRun();
        EXPECT_FALSE(with.control.simulated);
        with.control.repaints = 0;
        with.control.calls.clear();
        with.chart.Rebuild();
        EXPECT_EQ(with.control.points, points);
        EXPECT_EQ(with.control.limits, limits);
        EXPECT_TRUE(with.control.simulated);
        EXPECT_EQ(with.chart.Readings(), 2);
        EXPECT_EQ(with.control.repaints, 1);
        EXPECT_EQ(std::ranges::count(with.control.calls, "off"), 1);
        EXPECT_EQ(std::ranges::count(with.control.calls, "on"), 1);

        with.state.RunMode = false; // without readings it says what a run would show
        with.state.SampleCount = 0;
        with.arrays.Create(0);
        with.chart.Rebuild();
        EXPECT_TRUE(with.control.simulated);
    }
}

TEST(LiveChart, EditedFlagsChartTheReadingsThatAreThere)
{
    ChartWorld with;
    with.Choose({&F::MassCFlg});
    with.chart.PrepareRun();
    with.Measure(0, 8);
    with.chart.ToggleZoom();
    with.control.Zoom({ChartWorld::Days(1), ChartWorld::Days(2), 0.1});

    with.Choose(kBothRelative);
    with.chart.FlagsEdited(ChartView::Mass);
    EXPECT_THAT(Values(with.control), ElementsAre(std::pair(0, 8), std::pair(4, 8)));
    EXPECT_EQ(with.control.view, ChartView::Relative);
    EXPECT_EQ(with.control.limits,
              (FakeChart::Limits{ChartWorld::Days(0), ChartWorld::Days(0) + 0.0006, 50}));
}

TEST(LiveChart, DataWithoutAveragesOrDatesIsChartedAsFarAsItGoes)
{
    ChartWorld with;
    with.Choose(kAllMass);
    with.Give(100, 8);
    with.Give(200, 12);
    with.arrays.Averages = false;
    with.chart.ShowData();
    EXPECT_EQ(Values(with.control),
              (std::vector<std::pair<int, double>>{{1, 0.8}, {5, 0.8}, {1, 1.2}, {5, 2}}));
    EXPECT_EQ(with.control.limits.end, ChartWorld::Days(200));

    const FakeChart::Limits limits = with.control.limits;
    with.arrays.Dated = false;
    with.chart.ShowData();
    with.chart.SelectSpan(4);
    with.chart.ShowWholeRun();
    EXPECT_TRUE(with.control.points.empty());
    EXPECT_EQ(with.control.limits.end, limits.end);
    EXPECT_EQ(NearestReading(with.arrays, 2, ChartWorld::Days(100)), 0);
}

TEST(LiveChart, AlarmLinesReachUpToTheTopEdge)
{
    ChartWorld with;
    with.state.TwaAlarm = 1;
    with.state.StelAlarm = 2;
    with.state.CAlarm = 3;
    with.Choose({&F::MassCFlg, &F::AlarmCFlg, &F::AlarmTWAFlg, &F::AlarmSTELFlg});
    const auto drawn = [&](double top) {
        with.control.limits.top = top;
        with.control.Redraw();
        return with.control.levels;
    };
    const std::pair twa(LineStyle::DashDot, 1.0);
    const std::pair stel(LineStyle::Dash, 2.0);
    const std::pair ceiling(LineStyle::Solid, 3.0);
    EXPECT_THAT(drawn(3), ElementsAre(twa, stel, ceiling));
    EXPECT_THAT(drawn(2.9999), ElementsAre(twa, stel));
    EXPECT_THAT(drawn(0.5), ElementsAre());
    with.state.AlarmSTELFlg = false;
    EXPECT_THAT(drawn(3), ElementsAre(twa, ceiling));
    with.state.MassCFlg = false;
    EXPECT_THAT(drawn(3), ElementsAre()) << "no curve, no lines";
    with.state.RelativeCFlg = true;
    EXPECT_THAT(drawn(3), ElementsAre(twa, ceiling)) << "whichever the view";
}

TEST(LiveChart, GapsBreakTheCurvesAndAreMarkedLiveAndInARebuild)
{
    struct Row {
        const char* what;
        std::vector<RunGap> gaps; // among readings at 0, 10, 70 and 80 s
        std::ptrdiff_t breaks;
        std::vector<std::pair<int, int>> marks; // seconds
    };
    const auto at = ChartWorld::At;
    const Row rows[] = {
        {"none", {}, 0, {}},
        {"port lost, by the readings' times", {{3, GapKind::PortLost, at(500), at(540)}}, 1, {{10, 70}}},
        {"a clock that was set breaks nothing", {{3, GapKind::ClockSet, at(10), at(999)}}, 0, {{70, 70}}},
        {"several in a row",
         {{3, GapKind::PortLost, at(11), at(20)},
          {3, GapKind::Standstill, at(30), at(60)},
          {3, GapKind::ClockSet, at(60), at(61)},
          {4, GapKind::Standstill, at(71), at(79)}},
         2,
         {{10, 70}, {70, 70}, {70, 80}}},
        {"before the first reading", {{1, GapKind::Standstill, at(500), at(505)}}, 1, {{-5, 0}}},
        {"no reading came behind it", {{5, GapKind::PortLost, at(500), at(505)}}, 0, {{80, 85}}},
        {"nor behind the setting", {{5, GapKind::ClockSet, at(500), at(505)}}, 0, {{80, 80}}},
        {"a clock set back in the gap", {{5, GapKind::Standstill, at(500), at(5)}}, 0, {{80, 80}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ChartWorld with;
        with.Choose(kBothRelative);
        with.chart.PrepareRun();
        with.arrays.Gaps = row.gaps;
        with.control.Redraw();
        EXPECT_TRUE(with.control.gaps.empty()) << "no reading is shown yet";
        for (const int seconds : {0, 10, 70, 80})
            with.Measure(seconds, 8);
        for (const bool rebuilt : {false, true}) {
            if (rebuilt) {
                with.control.calls.clear();
                with.chart.ShowData();
            }
            EXPECT_EQ(std::ranges::count(with.control.calls, "break"), row.breaks);
            with.control.limits = {ChartWorld::Days(-100), ChartWorld::Days(100), 10};
            with.control.Redraw();
            ASSERT_EQ(with.control.gaps.size(), row.marks.size());
            for (std::size_t i = 0; i < row.marks.size(); ++i) {
                EXPECT_NEAR(with.control.gaps[i].first, ChartWorld::Days(row.marks[i].first), 1e-9);
                EXPECT_NEAR(with.control.gaps[i].second, ChartWorld::Days(row.marks[i].second), 1e-9);
            }
        }
        with.control.limits = {ChartWorld::Days(200), ChartWorld::Days(300), 10}; // a zoom
        with.control.Redraw();
        EXPECT_TRUE(with.control.gaps.empty()) << "out of sight";
    }
}

} // namespace
} // namespace quorvane
