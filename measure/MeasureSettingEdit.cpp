#include "measure/MeasureSettingEdit.h"

#include "app/RangeMessage.h"
#include "files/NumberText.h"

#include <cmath>

namespace quorvane {
namespace {

constexpr int kHighestMeasureSetting2 = 99;
constexpr double kSecondsPerHour = 3600;
constexpr double kSecondsPerMinute = 60;

int Highest(MeasureField field)
{
    switch (field) {
    case MeasureField::MeasureNumber:
        return kMaxSamples;
    case MeasureField::MeasureSetting2:
        return kHighestMeasureSetting2;
    case MeasureField::SamplingSeconds:
        break;
    }
    return kMaxSamplingSeconds;
}

void UpdateTotal(MeasureSettings& settings)
{
    const double seconds = settings.SamplingSeconds * settings.TotalSamples;
    settings.TotalHours = std::floor(seconds / kSecondsPerHour);
    const double behindHours = seconds - settings.TotalHours * kSecondsPerHour;
    settings.TotalMinutes = std::floor(behindHours / kSecondsPerMinute);
    settings.TotalSeconds = behindHours - settings.TotalMinutes * kSecondsPerMinute;
}

} // namespace

bool MeasureSettingEdit::TextChanged(MeasureField field, std::string_view text, std::string_view decimalSign)
{
    if (field == MeasureField::MeasureSetting2)
        return true;
    const double value = TypedNumber(text, decimalSign);
    if (!(value >= 0 && value <= Highest(field)))
        return false;
    Store(field, value);
    return true;
}

bool MeasureSettingEdit::TextLeft(MeasureField field, std::string_view text, std::string_view decimalSign)
{
    const double value = TypedNumber(text, decimalSign);
    if (!(value >= 1 && value <= Highest(field)))
        return false;
    if (std::nearbyint(value) != Stored(field)) // the total is as it was read until something changes
        Store(field, value);
    return true;
}

double MeasureSettingEdit::Stored(MeasureField field) const
{
    switch (field) {
    case MeasureField::MeasureNumber:
        return settings_.TotalSamples;
    case MeasureField::MeasureSetting2:
        return settings_.MeasureSetting2;
    case MeasureField::SamplingSeconds:
        break;
    }
    return settings_.SamplingSeconds;
}

void MeasureSettingEdit::Store(MeasureField field, double value)
{
    const double whole = std::nearbyint(value);
    switch (field) {
    case MeasureField::MeasureNumber:
        settings_.TotalSamples = whole;
        break;
    case MeasureField::MeasureSetting2:
        settings_.MeasureSetting2 = static_cast<std::int16_t>(whole);
        return;
    case MeasureField::SamplingSeconds:
        settings_.SamplingSeconds = static_cast<std::int16_t>(whole);
        break;
    }
    UpdateTotal(settings_);
}

void MeasureSettingEdit::Close()
{
    if (Accepted)
        return;
    settings_.TotalSamples = before_.TotalSamples;
    settings_.MeasureSetting2 = before_.MeasureSetting2;
    settings_.SamplingSeconds = before_.SamplingSeconds;
    settings_.TotalHours = before_.TotalHours;
    settings_.TotalMinutes = before_.TotalMinutes;
    settings_.TotalSeconds = before_.TotalSeconds;
}

Message MeasureRangeMessage(MeasureField field, const Texts& texts)
{
    return RangeMessage(texts, 1, Highest(field));
}

} // namespace quorvane
