#include "cli/RunReport.h"

#include "files/NumberText.h"
#include "measure/ReadingText.h"
#include "resources/OwnTexts.h"

#include <array>
#include <string_view>
#include <utility>

namespace quorvane {
namespace {

constexpr NumberPattern kAlarmValue{.integerDigits = 1, .minDecimals = 0, .maxDecimals = 4};
constexpr std::size_t kColumnWidth = 11;

constexpr std::array<std::string_view, 8> kHeadings{"No.", "Time", "CPM",     "mg/m3",
                                                    "TWA", "STEL", "CPM sum", "mg/m3 sum"};

void AddColumn(std::string& row, std::string_view text)
{
    if (text.size() < kColumnWidth)
        row.append(kColumnWidth - text.size(), ' ');
    row += text;
}

} // namespace

RunReport::RunReport(Console& console, const MeasurementArrays& arrays, const AlarmLimits& limits,
                     const Texts& texts, std::string decimalSign, bool rows)
    : console_(console),
      arrays_(arrays),
      limits_(limits),
      texts_(texts),
      decimalSign_(std::move(decimalSign)),
      rows_(rows)
{
}

void RunReport::StateChanged(RunState state)
{
    if (state != RunState::Measuring || !rows_)
        return;
    std::string heading;
    for (const std::string_view text : kHeadings)
        AddColumn(heading, text);
    console_.Print(heading);
}

void RunReport::SampleAdded(int sample)
{
    const auto i = static_cast<std::size_t>(sample);
    if (rows_)
        console_.Print(Row(i));
    for (const Lamp lamp : newlyLit_)
        console_.Say(AlarmLine(i, lamp));
    newlyLit_.clear();
}

void RunReport::LampChanged(Lamp lamp, bool lit)
{
    if (lit)
        newlyLit_.push_back(lamp); // told with its reading
}

std::string RunReport::Row(std::size_t sample) const
{
    std::string row;
    AddColumn(row, std::to_string(sample));
    AddColumn(row, Printable(arrays_.MeasureTime[sample]));
    AddColumn(row, GeneralText(arrays_.CountValue[sample], decimalSign_));
    AddColumn(row, PatternText(arrays_.ConcValue[sample], kSteadyConcPattern, decimalSign_));
    AddColumn(row, PatternText(arrays_.DerivedValueA[sample], kSteadyAveragePattern, decimalSign_));
    AddColumn(row, PatternText(arrays_.DerivedValueB[sample], kSteadyAveragePattern, decimalSign_));
    AddColumn(row, GeneralText(arrays_.IntegratedCount[sample], decimalSign_));
    AddColumn(row, PatternText(arrays_.IntegratedConc[sample], kSteadyConcPattern, decimalSign_));
    return row;
}

std::string RunReport::AlarmLine(std::size_t sample, Lamp lamp) const
{
    const auto line = [&](int name, double value, double limit) {
        return Printable(arrays_.MeasureTime[sample]) + "  " + texts_[name] + ": " +
               PatternText(value, kAlarmValue, decimalSign_) + " mg/m3 (" + GeneralText(limit, decimalSign_) +
               ")";
    };
    switch (lamp) {
    case Lamp::Twa:
        return line(kAlarmTwaText, arrays_.DerivedValueA[sample], limits_.TwaAlarm);
    case Lamp::Ceiling:
        return line(kAlarmCeilingText, arrays_.ConcValue[sample], limits_.CAlarm);
    case Lamp::Stel:
        break;
    }
    const double stel = arrays_.DerivedValueB[sample];
    if (stel > limits_.StelAlarm)
        return line(kAlarmStelText, stel, limits_.StelAlarm);
    return line(kAlarmExcursionText, stel, limits_.TwaAlarm);
}

} // namespace quorvane
