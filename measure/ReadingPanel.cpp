#include "measure/ReadingPanel.h"

#include "app/QtText.h"

#include <QLabel>

namespace quorvane {
namespace {

constexpr double kLarge = 2.2; // times the window's font

} // namespace

ReadingPanel::ReadingPanel(const std::array<Field, kFields>& fields) : fields_(fields)
{
    for (const Field& field : fields_) {
        QFont font = field.label->font();
        font.setPointSizeF(font.pointSizeF() * kLarge);
        font.setBold(true);
        field.label->setFont(font);
        // As wide as the widest value there can be, or the window would twitch.
        field.label->setMinimumWidth(QFontMetrics(font).horizontalAdvance(QStringLiteral("000.0000")));
    }
    Clear();
}

void ReadingPanel::Show(const MeasurementArrays& arrays, int sample, std::string_view decimalSign)
{
    for (const Field& field : fields_)
        field.label->setText(Shown(ReadingText(arrays, sample, field.column, decimalSign)));
}

void ReadingPanel::Clear()
{
    for (const Field& field : fields_)
        field.label->setText(QStringLiteral("\u2013"));
}

} // namespace quorvane
