#pragma once

#include "app/ApplicationState.h"
#include "app/LocaleItems.h"
#include "app/Texts.h"
#include "measure/MeasurementArrays.h"

#include <QFont>
#include <QPicture>
#include <QRectF>
#include <QSize>
#include <QString>
#include <vector>

class QPainter;

namespace quorvane {

/// A line of the page's heading.
struct PageFact {
    QString caption;
    QString value; ///< empty when there is none
};

/// A picture of the chart, and the size that it was drawn for, in 1/96 inch.
struct FrozenChart {
    QPicture picture;
    QSize size;
};

/// Paints the chart with its upper left corner at the origin, 1/96 inch of it as one unit of the painter.
void PaintFrozen(QPainter& painter, const FrozenChart& chart);

/// What is printed on one page.
struct ChartPage {
    QString title;
    std::vector<PageFact> facts;
    QString notice;                  ///< that the values are made up; empty when they are measured
    std::vector<FrozenChart> charts; ///< of several shapes; the page takes the one that fills it best
    QFont font;                      ///< of the texts, which have sizes of their own
};

/// Date and time of the first and the last reading, how many there are, the factor, the limits. A reading
/// that is just being taken does not count. Where dates cannot be relied upon, the texts of the data file
/// stand in for them.
[[nodiscard]] std::vector<PageFact> ChartFacts(const ApplicationState& state, const MeasurementArrays& arrays,
                                               const Texts& texts, const LocaleItems& locale);

/// Sizes of the chart, in 1/96 inch, that fill a usual sheet of paper, upright and across, below a heading.
[[nodiscard]] std::vector<QSize> UsualChartSizes();

/// Paints the page into `area`, whatever the painter's unit is: a longer sheet shows everything larger.
void PaintChartPage(QPainter& painter, const QRectF& area, const ChartPage& page);

} // namespace quorvane
