#include "graph/ChartWidget.h"

#include "app/ProgramFont.h"
#include "graph/ChartSteps.h"
#include "graph/PlotLibrary.h"
#include "resources/StringTable.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWheelEvent>
#include <cmath>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

constexpr ChartTime kStart = 19844.375; // 1 May 2024, 9:00
constexpr ChartTime kWidth = 0.01;
constexpr QRgb kPanel = qRgb(2, 234, 253);
constexpr QRgb kYellow = qRgb(255, 255, 0);
constexpr QRgb kRed = qRgb(255, 0, 0);
constexpr const char* kSeriesNames[] = {"Relative Concentration(Instantaneous value)",
                                        "Mass Concentration(C)",
                                        "Mass Concentration(TWA)",
                                        "Mass Concentration(STEL)",
                                        "Relative Concentration(Integrated value)",
                                        "Mass Concentration(Integrated value)"};

QImage Painted(const QPicture& picture, QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter(&image).drawPicture(0, 0, picture);
    return image;
}

/// A chart of 0.01 days from 9:00 and values from 0 to 10.
class ChartWidgetTest : public testing::Test {
protected:
    ChartWidgetTest()
    {
        const StringTable table(TableLanguage::English);
        const ProgramPlace place;
        chart.SetCaptions(Texts(table, place));
        chart.SetView(ChartView::Mass);
        chart.SetBottomMaximum(kStart + kWidth);
        chart.SetBottomMinimum(kStart);
        chart.SetLeftMaximum(10);
        chart.OnUserZoom([this] {
            ++zooms;
            if (onZoom)
                onZoom();
        });
        chart.resize(800, 400);
        chart.show();
        static_cast<void>(QTest::qWaitForWindowExposed(&chart));
        chart.RepaintNow();
    }

    /// The pixel of a point, both given as shares of the axes as shown.
    [[nodiscard]] QPoint Place(double time, double value) const
    {
        const QRect area = chart.CurveArea();
        return {area.left() + qRound(time * area.width()), qRound(area.bottom() - value * area.height())};
    }
    void Drag(QPoint from, QPoint to)
    {
        QTest::mousePress(&chart, Qt::LeftButton, {}, from);
        QTest::mouseMove(&chart, to);
        QTest::mouseRelease(&chart, Qt::LeftButton, {}, to);
    }
    void Turn(QPoint mouse, int notches)
    {
        QWheelEvent event(mouse, chart.mapToGlobal(mouse), {}, {0, 120 * notches}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&chart, &event);
    }
    [[nodiscard]] QImage Screen()
    {
        chart.RepaintNow();
        return chart.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    void ExpectLimits(ChartTime begin, ChartTime end, double low, double high)
    {
        EXPECT_NEAR((chart.BottomMinimum() - kStart) / kWidth, begin, 0.005);
        EXPECT_NEAR((chart.BottomMaximum() - kStart) / kWidth, end, 0.005);
        EXPECT_NEAR(chart.LeftMinimum(), low, 0.05);
        EXPECT_NEAR(chart.LeftMaximum(), high, 0.05);
    }

    ChartWidget chart;
    int zooms = 0;
    std::function<void()> onZoom;
};

TEST_F(ChartWidgetTest, DraggingZoomsBothAxesAndUndoGoesBack)
{
    chart.SetMouseZoom(true);
    Drag(Place(0.75, 0.25), Place(0.25, 0.75)); // any corner first
    ExpectLimits(0.25, 0.75, 2.5, 7.5);
    Drag(Place(0.5, 0.5), {5000, -5000}); // beyond the curves: to their corner
    ExpectLimits(0.5, 0.75, 5, 7.5);
    Drag(Place(0.5, 0.5), Place(0.5, 0.5) + QPoint(2, 2)); // a click by an unsteady hand
    EXPECT_EQ(zooms, 2);

    chart.UndoZoom();
    EXPECT_EQ(chart.BottomMinimum(), kStart);
    EXPECT_EQ(chart.BottomMaximum(), kStart + kWidth);
    EXPECT_EQ(chart.LeftMinimum(), 0);
    EXPECT_EQ(chart.LeftMaximum(), 10);
}

TEST_F(ChartWidgetTest, AChartThatShrinksAwayUnderTheMouseDoesNotZoom)
{
    chart.SetMouseZoom(true);
    QTest::mousePress(&chart, Qt::LeftButton, {}, Place(0.2, 0.2));
    chart.resize(20, 20);
    chart.RepaintNow();
    QTest::mouseMove(&chart, {10, 10});
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(zooms, 0);
}

TEST_F(ChartWidgetTest, NothingZoomsWhileZoomIsOff)
{
    chart.SetMouseZoom(true);
    chart.SetMouseZoom(false);
    Drag(Place(0.2, 0.2), Place(0.8, 0.8));
    Turn(Place(0.5, 0.5), 1);
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Left, Qt::Key_Right})
        QTest::keyClick(&chart, key);
    EXPECT_EQ(zooms, 0);
    EXPECT_EQ(chart.BottomMinimum(), kStart);
    EXPECT_EQ(chart.LeftMaximum(), 10);
}

TEST_F(ChartWidgetTest, WheelAndKeysZoomAndScroll)
{
    chart.SetMouseZoom(true);
    Turn(Place(0.25, 0.5), 1); // a fifth less, and what the mouse is on stays there
    ExpectLimits(0.05, 0.85, 1, 9);
    Turn(Place(0.25, 0.5), -1);
    ExpectLimits(0, 1, 0, 10);
    QTest::keyClick(&chart, Qt::Key_Plus);
    ExpectLimits(0.1, 0.9, 1, 9);
    QTest::keyClick(&chart, Qt::Key_Left);
    ExpectLimits(0.02, 0.82, 1, 9);
    QTest::keyClick(&chart, Qt::Key_Right);
    QTest::keyClick(&chart, Qt::Key_Minus);
    ExpectLimits(0, 1, 0, 10);
    EXPECT_EQ(zooms, 6);
}

TEST_F(ChartWidgetTest, LimitsOfTheZoomHandlerAreUndoneThoseOfTheProgramStay)
{
    chart.SetMouseZoom(true);
    onZoom = [this] { chart.SetBottomMaximum(kStart + 0.5 * kWidth); };
    Drag(Place(0.1, 0.1), Place(0.9, 0.9));
    EXPECT_EQ(chart.BottomMaximum(), kStart + 0.5 * kWidth);
    chart.SetLeftMaximum(20); // a reading has grown the axis
    EXPECT_NEAR(chart.LeftMinimum(), 1, 0.05);
    chart.UndoZoom();
    ExpectLimits(0, 1, 0, 20);
}

TEST_F(ChartWidgetTest, ZoomStaysWithinReason)
{
    chart.SetMouseZoom(true);
    for (int i = 0; i < 200; ++i)
        Turn(Place(0.5, 0.5), 1);
    EXPECT_NEAR((chart.BottomMaximum() - chart.BottomMinimum()) * 86400, 1, 1e-3);
    EXPECT_NEAR(chart.LeftMaximum() - chart.LeftMinimum(), 0.001, 1e-9);
    for (int i = 0; i < 400; ++i)
        Turn(Place(0.5, 0.5), -1);
    EXPECT_LT(chart.BottomMaximum() - chart.BottomMinimum(), 3654);
    EXPECT_EQ(chart.LeftMinimum(), 0);
    EXPECT_TRUE(std::isfinite(chart.LeftMaximum()));
    chart.SetBottomMaximum(std::nan(""));
    EXPECT_TRUE(std::isfinite(chart.BottomMaximum()));
    static_cast<void>(Screen()); // and it can be drawn
}

TEST_F(ChartWidgetTest, LevelsArePureRedLinesOnTheScreenAndInFrozenPictures)
{
    chart.OnRedraw([this] {
        chart.DrawLevel(LineStyle::Solid, 2.5);
        chart.DrawLevel(LineStyle::Solid, 10);   // on the upper edge
        chart.DrawLevel(LineStyle::Solid, -0.3); // a zoom has left it below: not across the labels
        chart.DrawLevel(LineStyle::Dash, 7.5);
    });
    chart.DrawLevel(LineStyle::Solid, 5); // nobody is redrawing
    for (const QImage& image : {Screen(), Painted(chart.Frozen(chart.size()), chart.size())}) {
        int dashes = 0;
        for (int x = Place(0, 0).x() + 2; x < Place(1, 0).x() - 1; ++x) {
            ASSERT_EQ(image.pixel(x, Place(0, 0.25).y()), kRed) << x;
            ASSERT_EQ(image.pixel(x, Place(0, 1).y()), kRed) << x;
            ASSERT_NE(image.pixel(x, Place(0, -0.03).y()), kRed) << x;
            ASSERT_NE(image.pixel(x, Place(0, 0.5).y()), kRed) << x;
            dashes += image.pixel(x, Place(0, 0.75).y()) == kRed ? 1 : 0;
        }
        EXPECT_GT(dashes, 300);
        EXPECT_LT(dashes, 600);
    }
}

TEST_F(ChartWidgetTest, EverySeriesHasItsColour)
{
    const QRgb colours[] = {kRed, qRgb(0, 128, 0), qRgb(0, 0, 255), kYellow, kYellow, qRgb(255, 0, 255)};
    for (std::int16_t series = 0; series < kChartSeriesCount; ++series) {
        chart.ClearPoints();
        for (const double share : {0.0, 0.33, 1.0}) // away from the lines of the grid
            chart.AddPoint(series, kStart + share * kWidth, 3.3);
        const QImage image = Screen();
        EXPECT_EQ(image.pixel(Place(0.33, 0.33)), colours[series]) << series;
    }
}

TEST_F(ChartWidgetTest, BarsAreClearOutlinesWhereThereIsRoom)
{
    for (const double share : {0.23, 0.53, 0.83})
        chart.AddPoint(kRelativeIntegratedSeries, kStart + share * kWidth, 5.3);
    const QImage image = Screen();
    const double half = 0.3 * 0.06 / 2;
    EXPECT_EQ(image.pixel(Place(0.53, 0.53)), kYellow); // its top
    EXPECT_EQ(image.pixel(Place(0.53, 0.33)), kPanel);
    EXPECT_EQ(image.pixel(Place(0.53 - half, 0.33)), kYellow);
}

TEST_F(ChartWidgetTest, BarsAreThereHoweverFarBelowTheirBaseIs)
{
    for (const double share : {0.2, 0.5, 0.8})
        chart.AddPoint(kRelativeIntegratedSeries, kStart + share * kWidth, 5e9);
    chart.SetLeftMaximum(5e9);
    chart.SetMouseZoom(true);
    for (int i = 0; i < 12; ++i) { // the height becomes a part in a billion, and so does the time
        Turn(Place(0.5, 0.99), 8);
        chart.SetBottomMinimum(kStart);
        chart.SetBottomMaximum(kStart + kWidth);
    }
    EXPECT_LT(chart.LeftMaximum() - chart.LeftMinimum(), 10);
    const QImage image = Screen();
    int yellow = 0;
    for (int x = 0; x < image.width(); ++x)
        yellow += image.pixel(x, Place(0.5, 0.05).y()) == kYellow ? 1 : 0;
    EXPECT_GT(yellow, 2);
}

TEST_F(ChartWidgetTest, AnEarlierReadingIsSortedIn)
{
    for (const double share : {0.1, 0.9, 0.47})
        chart.AddPoint(kTwaSeries, kStart + share * kWidth, share == 0.47 ? 9.3 : 5.3);
    const QImage image = Screen();
    EXPECT_EQ(image.pixel(Place(0.47, 0.93)), qRgb(0, 0, 255));
    EXPECT_EQ(image.pixel(Place(0.47, 0.53)), kPanel);
}

TEST_F(ChartWidgetTest, OneHighReadingAmongManyIsSeen)
{
    for (int i = 0; i < 65500; ++i) {
        chart.AddPoint(kMassSeries, kStart + i / 65500.0 * kWidth, i == 34567 ? 9.5 : 1);
        chart.AddPoint(kRelativeIntegratedSeries, kStart + i / 65500.0 * kWidth, 3.3);
    }
    const QImage image = Screen();
    int seen = 0;
    int bars = 0;
    for (int x = Place(0, 0).x() + 2; x < Place(1, 0).x() - 1; ++x) {
        seen += image.pixel(x, Place(0, 0.93).y()) == qRgb(0, 128, 0) ? 1 : 0;
        bars += image.pixel(x, Place(0, 0.23).y()) == kYellow ? 1 : 0;
    }
    EXPECT_GE(bars, chart.CurveArea().width() - 8);
    EXPECT_GE(seen, 1);
    EXPECT_LE(seen, 3);
}

TEST_F(ChartWidgetTest, AGapIsHatchedAndNoLineGoesAcrossIt)
{
    const QRgb blue = qRgb(0, 0, 255);
    for (const int points : {100, 65500}) { // in the dense curve many share a column of pixels
        chart.ClearPoints();
        for (int i = 0; i < points; ++i) {
            if (i == points / 2) {
                chart.BreakLines();
                chart.BreakLines(); // a reading came, and its time is not later
                chart.AddPoint(kTwaSeries, kStart + 0.5 * kWidth, 7.3); // alone between two gaps
                chart.BreakLines();
            }
            const double share = i < points / 2 ? 0.4 : 0.6;
            chart.AddPoint(kTwaSeries, kStart + (share + 0.4 * i / points - 0.2) * kWidth, 3.3);
        }
        chart.OnRedrawBehind([this] {
            chart.DrawGap(kStart + 0.4 * kWidth, kStart + 0.6 * kWidth);
            chart.DrawGap(kStart + 0.9 * kWidth, kStart + 0.9 * kWidth);
            chart.DrawGap(kStart - kWidth, kStart - 0.5 * kWidth); // out of sight
        });
        for (const QImage& image : {Screen(), Painted(chart.Frozen(chart.size()), chart.size())}) {
            const auto isBlue = [&](QPoint at) { // a picture's lines round another way
                return image.pixel(at) == blue || image.pixel(at - QPoint(0, 1)) == blue;
            };
            EXPECT_TRUE(isBlue(Place(0.39, 0.33)));
            EXPECT_TRUE(isBlue(Place(0.61, 0.33)));
            EXPECT_EQ(image.pixel(Place(0.5, 0.73)), blue);
            int across = 0;
            int hatched = 0;
            for (int x = Place(0.41, 0).x(); x < Place(0.59, 0).x(); ++x) {
                across += isBlue({x, Place(0, 0.33).y()}) ? 1 : 0;
                hatched += image.pixel(x, Place(0, 0.93).y()) != kPanel ? 1 : 0;
            }
            EXPECT_GT(hatched, 10);
            EXPECT_LT(hatched, 60);
            int dashes = 0;
            int outside = 0;
            for (int y = Place(0, 0.98).y(); y < Place(0, 0.02).y(); ++y) {
                across += isBlue({Place(0.45, 0).x(), y}) ? 1 : 0; // on the way to the lone point, too
                dashes += image.pixel(Place(0.9, 0).x(), y) == qRgb(0, 0, 0) ? 1 : 0;
                outside += image.pixel(Place(0, 0).x() - 9, y) == qRgb(0, 0, 0) ? 1 : 0;
            }
            EXPECT_EQ(across, 0);
            EXPECT_GT(dashes, 100);
            EXPECT_LT(dashes, 270);
            EXPECT_LT(outside, 60) << "figures of the axis at most";
        }
    }
}

TEST_F(ChartWidgetTest, FrozenPictureHasTheNoticeButNotTheHintAndDoesNotChange)
{
    const QPicture plain = chart.Frozen(chart.size());
    chart.SetSimulated(true);
    const QPicture noticed = chart.Frozen(chart.size());
    chart.AddPoint(kMassSeries, kStart, 5.3);
    chart.AddPoint(kMassSeries, kStart + kWidth, 5.3);
    const QImage before = Painted(noticed, chart.size());
    EXPECT_NE(before, Painted(plain, chart.size()));
    EXPECT_EQ(before.pixel(Place(0.33, 0.53)), kPanel);

    ChartTime asked = 0;
    chart.OnHover([&](ChartTime time) {
        asked = time;
        return QStringLiteral("0.123 mg/m3");
    });
    const QImage unhinted = Screen();
    QTest::mouseMove(&chart, Place(0.52, 0.2));
    EXPECT_NE(Screen(), unhinted);
    EXPECT_NEAR((asked - kStart) / kWidth, 0.52, 0.005);
    EXPECT_EQ(Painted(chart.Frozen(chart.size()), chart.size()).pixel(Place(0.52, 0.13)), kPanel);
}

TEST_F(ChartWidgetTest, ManyRepaintsAreOneAndNoneWhileHidden)
{
    int redraws = 0;
    chart.OnRedraw([&] { ++redraws; });
    chart.hide();
    for (int i = 0; i < 50; ++i)
        chart.AddPoint(kMassSeries, kStart + i, i);
    QApplication::processEvents();
    EXPECT_EQ(redraws, 0);
    chart.show();
    QApplication::processEvents();
    EXPECT_EQ(redraws, 1);
    for (int i = 0; i < 50; ++i)
        chart.Repaint();
    QApplication::processEvents();
    EXPECT_EQ(redraws, 2);
    chart.SetAutoRepaint(false);
    chart.AddPoint(kMassSeries, kStart, 1);
    QApplication::processEvents();
    EXPECT_EQ(redraws, 2);
}

TEST_F(ChartWidgetTest, TextsAreInTheJapaneseFamilyInEitherLanguage)
{
    const auto& plot = *chart.findChild<QCustomPlot*>();
    const QStringList japanese = ProgramFont(TableLanguage::Japanese).families();
    QFont other;
    other.setFamilies({u"Any Other"_qs});
    chart.setFont(other); // as a window with English texts does
    chart.SetFonts();
    EXPECT_EQ(plot.legend->font().families(), japanese);
    EXPECT_EQ(plot.legend->font().pixelSize(), 11);
    for (const QCPAxis* const axis : {plot.xAxis, plot.yAxis}) {
        EXPECT_EQ(axis->tickLabelFont().families(), japanese);
        EXPECT_EQ(axis->labelFont().pixelSize(), 13);
    }
}

TEST_F(ChartWidgetTest, LegendNamesWhatIsSwitchedInAndTheValueAxisWhatItShows)
{
    const auto& plot = *chart.findChild<QCustomPlot*>();
    const auto inLegend = [&] {
        static_cast<void>(Screen());
        std::vector<std::string> names;
        for (int series = 0; series < kChartSeriesCount; ++series)
            if (plot.legend->visible() && plot.legend->hasItemWithPlottable(plot.graph(series)))
                names.push_back(plot.graph(series)->name().toStdString());
        return names;
    };
    std::vector<std::string> expected;
    for (std::int16_t series = 0; series < kChartSeriesCount; ++series) {
        EXPECT_EQ(inLegend(), expected);
        EXPECT_EQ(plot.legend->visible(), series > 0);
        chart.SetInLegend(series, true);
        expected.emplace_back(kSeriesNames[series]);
    }
    chart.SetInLegend(kMassIntegratedSeries, false);
    expected.pop_back();
    EXPECT_EQ(inLegend(), expected);

    const auto titlePixels = [this](ChartView view) {
        chart.SetView(view);
        const QImage image = Screen();
        int ink = 0;
        for (int x = chart.CurveArea().left() - 60; x < chart.CurveArea().left() - 40; ++x)
            for (int y = 10; y < image.height() - 10; ++y)
                ink += qGray(image.pixel(x, y)) < 60 ? 1 : 0;
        return ink;
    };
    EXPECT_EQ(titlePixels(ChartView::None), 0);
    EXPECT_GT(titlePixels(ChartView::Relative), 20);
    EXPECT_GT(titlePixels(ChartView::Mass), 1.5 * titlePixels(ChartView::Relative)); // the longer one

    const auto labels = [&](ChartView view) {
        chart.SetView(view);
        QVector<double> ticks;
        QVector<QString> texts;
        plot.yAxis->ticker()->generate({0, 2}, QLocale::c(), u'f', 1, ticks, nullptr, &texts);
        return texts;
    };
    EXPECT_EQ(labels(ChartView::Relative), (QVector<QString>{u"0"_qs, u"1"_qs, u"2"_qs}));
    EXPECT_EQ(labels(ChartView::Mass).value(1), u"0.2"_qs);
}

TEST(ChartSteps, AreRound)
{
    constexpr double kHour = 3600;
    const std::pair<double, double> times[] = {{0.001, 1},
                                               {1, 1},
                                               {2.5, 5},
                                               {16, 30},
                                               {31, 60},
                                               {3 * kHour + 1, 6 * kHour},
                                               {24 * kHour, 24 * kHour},
                                               {25 * kHour, 48 * kHour}};
    for (const auto& [wanted, step] : times)
        EXPECT_EQ(RoundTimeStep(wanted), step) << wanted;
    const std::tuple<double, double, int> values[] = {{0.0007, 0.001, 3}, {0.001, 0.001, 3}, {0.011, 0.02, 2},
                                                      {3, 5, 0},          {10, 10, 0},       {60, 100, 0},
                                                      {0, 1, 0}};
    for (const auto& [wanted, step, decimals] : values) {
        EXPECT_DOUBLE_EQ(RoundValueStep(wanted), step) << wanted;
        EXPECT_EQ(DecimalsOfStep(step), decimals) << step;
    }
}

} // namespace
} // namespace quorvane
