#include "measure/ExposureRows.h"

#include "app/CheckedBox.h"
#include "app/QtText.h"
#include "measure/LampView.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QLabel>

namespace quorvane {
namespace {

struct RowTexts {
    Lamp lamp;
    const char* litPicture;
    int nameId;
    int meaningId;
    int limitId;
};

/// In the order of the rows.
constexpr std::array<RowTexts, 3> kRows = {{
    {Lamp::Twa, ":/pictures/lamp-twa-lit.png", kTwaNameText, kTwaMeaningText, kTwaLimitText},
    {Lamp::Stel, ":/pictures/lamp-stel-lit.png", kStelNameText, kStelMeaningText, kStelLimitText},
    {Lamp::Ceiling, ":/pictures/lamp-ceiling-lit.png", kCeilingNameText, kConcMeaningText, kCeilingLimitText},
}};

} // namespace

ExposureRows::ExposureRows(const std::array<ExposureRow, 3>& rows) : rows_(rows)
{
    for (std::size_t i = 0; i < rows_.size(); ++i)
        rows_[i].lamp->SetPicture(QLatin1String(kRows[i].litPicture));
}

void ExposureRows::SetCaptions(const Texts& texts)
{
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const ExposureRow& row = rows_[i];
        const QString name = Shown(texts[kRows[i].nameId]);
        const QString meaning = Shown(texts[kRows[i].meaningId]);
        row.lamp->SetTexts(name, Shown(texts[kLampLitText]), Shown(texts[kLampUnlitText]));
        row.name->setText(name + QLatin1Char('\n') + meaning);
        row.value->setAccessibleName(name + QLatin1Char(' ') + meaning);
        row.limitLabel->setText(Shown(texts[kRows[i].limitId]));
        row.limit->setAccessibleName(Shown(texts[kRows[i].limitId]));
        row.limit->setToolTip(Shown(texts[kLimitTipText]));
    }
}

void ExposureRows::SetLit(Lamp lamp, bool lit)
{
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (kRows[i].lamp == lamp)
            rows_[i].lamp->SetLit(lit);
    }
}

} // namespace quorvane
