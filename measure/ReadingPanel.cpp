#include "measure/ReadingPanel.h"

#include "app/ProgramFont.h"
#include "app/QtText.h"
#include "measure/ReadingText.h"

#include <QLabel>

namespace quorvane {
namespace {

constexpr double kLarge = 2.4; // times the window's font

} // namespace

ReadingPanel::ReadingPanel(const Labels& labels) : labels_(labels)
{
    Show({}, 0, {});
}

void ReadingPanel::SetFonts(const QFont& font)
{
    QFont large = Enlarged(font, kLarge);
    large.setBold(true);
    for (QLabel* label : {labels_.count, labels_.conc, labels_.twa, labels_.stel}) {
        label->setFont(large);
        // As wide as the usual values get, or the window would twitch.
        label->setMinimumWidth(QFontMetrics(large).horizontalAdvance(QStringLiteral("00.0000")));
    }
}

void ReadingPanel::Show(const MeasurementArrays& arrays, int sample, std::string_view decimalSign)
{
    for (QLabel* label : {labels_.count, labels_.conc, labels_.twa, labels_.stel})
        label->setText(QStringLiteral("\u2013"));
    if (sample == 0)
        return;
    const auto i = static_cast<std::size_t>(sample);
    labels_.count->setText(Shown(GeneralText(arrays.CountValue[i], decimalSign)));
    labels_.conc->setText(Shown(PatternText(arrays.ConcValue[i], kSteadyConcPattern, decimalSign)));
    if (!arrays.Averages)
        return;
    labels_.twa->setText(Shown(PatternText(arrays.DerivedValueA[i], kSteadyAveragePattern, decimalSign)));
    labels_.stel->setText(Shown(PatternText(arrays.DerivedValueB[i], kSteadyAveragePattern, decimalSign)));
}

void ReadingPanel::SetStale(bool stale)
{
    for (QLabel* label : {labels_.count, labels_.conc, labels_.twa, labels_.stel})
        label->setEnabled(!stale); // a screen reader tells it, too
}

} // namespace quorvane
