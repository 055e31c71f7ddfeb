#include "tests/support/FakeChart.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using Calls = std::vector<std::string>;
using Limits = FakeChart::Limits;

constexpr double kSpan = 0.0006; // 51.84 s

ChartTime Days(int seconds)
{
    return ChartWorld::Days(seconds);
}

TEST(LiveChartTimeAxis, FirstReadingPutsTheWindowWhereverItWas)
{
    struct Row {
        const char* what;
        double begin, end;
        Calls calls;
    };
    const Row rows[] = {
        {"a day earlier", Days(-86400), Days(-86340), {"end", "begin"}},
        {"after the new window's end", Days(53), Days(120), {"begin", "end", "begin"}},
        {"at the new window's end", Days(0) + kSpan, Days(120), {"end", "begin"}},
        {"never used", 0, 1, {"end", "begin"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ChartWorld with;
        with.control.limits = {row.begin, row.end, 10};
        with.Measure(0, 5);
        EXPECT_EQ(with.control.limits, (Limits{Days(0), Days(0) + kSpan, 10}));
        EXPECT_EQ(with.control.calls, row.calls);
    }
}

TEST(LiveChartTimeAxis, SlidesOnlyWhenAReadingLiesBeyondIt)
{
    ChartWorld with;
    with.Measure(0, 5);
    with.control.SetBottomMaximum(Days(50));
    with.Measure(50, 5);
    EXPECT_EQ(with.control.limits.begin, Days(0)) << "exactly at the maximum";
    with.Measure(51, 5);
    EXPECT_EQ(with.control.limits, (Limits{Days(51) - kSpan, Days(51), 10}));
    with.Measure(51, 5);
    EXPECT_EQ(with.control.limits, (Limits{Days(51) - kSpan, Days(51), 10})) << "another in the same second";
    with.Measure(90000, 5);
    EXPECT_EQ(with.control.limits, (Limits{Days(90000) - kSpan, Days(90000), 10})) << "a day later";
}

TEST(LiveChartTimeAxis, SpanShowsTheNewestReadingsAtOnce)
{
    ChartWorld with;
    with.chart.SelectSpan(2);
    EXPECT_TRUE(with.control.calls.empty()) << "nothing to show yet";
    with.Measure(0, 5);
    EXPECT_EQ(with.control.limits, (Limits{Days(0), Days(0) + 0.007, 10}));
    with.Measure(600, 5);
    const struct {
        int number, span;
        double begin, end;
    } rows[] = {
        {1, 1, Days(600) - kSpan, Days(600)}, {2, 2, Days(0), Days(0) + 0.007}, // 604.8 s
        {3, 3, Days(0), Days(0) + 0.04},      {4, 4, Days(0), Days(0) + 0.2},
        {5, 4, Days(0), Days(0) + 0.2},       {0, 4, Days(0), Days(0) + 0.2},
    };
    for (const auto& row : rows) {
        with.chart.SelectSpan(row.number);
        EXPECT_EQ(with.control.limits, (Limits{row.begin, row.end, 10})) << row.number;
        EXPECT_EQ(with.chart.Span(), row.span);
    }

    with.state.SampleCount = 3; // the run awaits its third reading
    with.chart.SelectSpan(1);
    EXPECT_EQ(with.control.limits.end, Days(600));
}

TEST(LiveChartTimeAxis, WholeRunGoesFromTheFirstReadingToTheLast)
{
    ChartWorld with;
    with.chart.ShowWholeRun();
    EXPECT_TRUE(with.control.calls.empty());
    with.Measure(0, 5);
    with.Measure(0, 5);
    with.chart.ShowWholeRun();
    EXPECT_EQ(with.control.limits, (Limits{Days(0), Days(0) + kSpan, 10})) << "a single time";
    with.Measure(7200, 5);
    with.chart.ShowWholeRun();
    EXPECT_EQ(with.control.limits, (Limits{Days(0), Days(7200), 10}));
}

TEST(LiveChartTimeAxis, OtherDataIsShownWhole)
{
    for (const int offset : {-90000, 90000}) {
        ChartWorld with;
        with.Measure(0, 5);
        with.chart.ToggleZoom();
        with.control.Zoom({Days(10), Days(20), 3});

        with.state.SampleCount = 0;
        with.Give(offset, 5);
        with.Give(offset + 300, 5);
        with.chart.ShowData();
        EXPECT_EQ(with.control.limits, (Limits{Days(offset), Days(offset + 300), 10}));
        EXPECT_FALSE(with.chart.ZoomOn());
        EXPECT_FALSE(with.control.mouseZoom);
        with.chart.ToggleZoom();
        with.control.Zoom({Days(offset - 1), Days(offset + 900), 10});
        EXPECT_EQ(with.control.limits.begin, Days(offset)) << "clamped to these data";
    }
}

TEST(LiveChartZoom, ComesAndGoesWithTheButton)
{
    ChartWorld with;
    with.Measure(0, 5);
    const Limits whole = with.control.limits;
    EXPECT_EQ(with.chart.ZoomCaptionId(), 226);
    with.chart.ToggleZoom();
    EXPECT_TRUE(with.control.mouseZoom);
    EXPECT_EQ(with.chart.ZoomCaptionId(), 227);
    with.control.Zoom({Days(10), Days(20), 3});
    EXPECT_EQ(with.control.limits, (Limits{Days(10), Days(20), 3})) << "inside the run nothing is clamped";
    with.chart.ToggleZoom();
    EXPECT_FALSE(with.control.mouseZoom);
    EXPECT_EQ(with.chart.ZoomCaptionId(), 226);
    EXPECT_EQ(with.control.limits, whole);

    with.chart.ToggleZoom();
    with.control.Zoom({Days(10), Days(20), 3});
    with.chart.PrepareRun();
    EXPECT_FALSE(with.chart.ZoomOn()) << "a run begins without";
    EXPECT_FALSE(with.control.mouseZoom);
    EXPECT_EQ(with.control.limits, whole);
}

TEST(LiveChartZoom, OutToBeforeTheRunLeadsBackToItsStart)
{
    ChartWorld with;
    with.chart.SelectSpan(4);
    with.Measure(0, 5);
    with.Measure(9000, 5);
    const Limits given = with.control.limits;
    with.chart.ToggleZoom();
    for (const Limits& to : {Limits{Days(-1), Days(9000), 20}, Limits{Days(-900), Days(-800), 20}}) {
        with.control.Zoom(to);
        EXPECT_EQ(with.control.limits, (Limits{Days(0), Days(0) + kSpan, 20})) << "whatever the span";
    }
    with.control.Zoom({Days(0), Days(9000), 20});
    EXPECT_EQ(with.control.limits.end, Days(9000));
    with.chart.ToggleZoom();
    EXPECT_EQ(with.control.limits, given) << "the clamp was a part of the zoom";
}

TEST(NearestReading, IsFoundByItsTime)
{
    ChartWorld with;
    for (const int second : {10, 20, 30})
        with.Give(second, 5);
    const struct {
        const char* what;
        double time;
        int count, nearest;
    } rows[] = {
        {"none", Days(10), 0, 0},
        {"those not yet complete do not count", Days(99), 1, 1},
        {"before all", 0, 3, 1},
        {"at the first", Days(10), 3, 1},
        {"before halfway", Days(14), 3, 1},
        {"past halfway", Days(16), 3, 2},
        {"at one", Days(20), 3, 2},
        {"near the last", Days(26), 3, 3},
        {"after all", Days(9999), 3, 3},
    };
    for (const auto& row : rows)
        EXPECT_EQ(NearestReading(with.arrays, row.count, row.time), row.nearest) << row.what;
}

} // namespace
} // namespace quorvane
