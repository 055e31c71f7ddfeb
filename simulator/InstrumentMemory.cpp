#include "simulator/InstrumentMemory.h"

#include "app/FixedForm.h"
#include "files/NumberText.h"
#include "instrument/DateTimeText.h"

namespace quorvane {
namespace {

std::string DateText(LocalMoment moment)
{
    const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(moment));
    return PatternText(static_cast<int>(date.year()), {4, 0, 0}) + '/' +
           PatternText(static_cast<unsigned>(date.month()), {2, 0, 0}) + '/' +
           PatternText(static_cast<unsigned>(date.day()), {2, 0, 0});
}

} // namespace

InstrumentMemory::ClockTime InstrumentMemory::ClockAt(Time now) const
{
    // Rounded: a second of its own may lie a fraction of a nanosecond behind the real time that stands for
    // it.
    const std::chrono::duration<double, std::milli> realTime = now - settingTime_;
    return clockAtSetting_ + std::chrono::round<std::chrono::milliseconds>(realTime * speed_);
}

std::string InstrumentMemory::ClockRecord(Time now) const
{
    const auto moment = std::chrono::floor<std::chrono::seconds>(ClockAt(now));
    return DateText(moment) + ' ' + InstrumentTimeText(moment) + "\r\n";
}

bool InstrumentMemory::SetClock(std::string_view parameters, Time now)
{
    const auto moment = MomentInForm(parameters, "yyyy;MM;dd;HH;mm;ss");
    if (!moment)
        return false;
    clockAtSetting_ = *moment;
    settingTime_ = now;
    return true;
}

bool InstrumentMemory::SetFactor(std::string_view parameters)
{
    if (!HasForm(parameters, "d.d") || parameters == "0.0")
        return false;
    const int tenths = (parameters[0] - '0') * 10 + (parameters[2] - '0');
    factor_ = tenths / 10.0;
    return true;
}

bool InstrumentMemory::SetProgram(std::string_view parameters)
{
    constexpr std::string_view kStartForm = "yyyy/MM/dd;hh:mm:ss";
    constexpr std::string_view kRestForm = ";HH:MM;nnnnn";
    constexpr std::string_view kAnyDate = "2000/01/01"; // the time of day is still looked at
    const std::string_view date = parameters.substr(0, parameters.find(';'));
    const bool open = date.empty() || date == "0000/00/00";
    const std::string text = std::string(open ? kAnyDate : date).append(parameters.substr(date.size()));

    const std::string_view start = std::string_view(text).substr(0, kStartForm.size());
    const std::string_view rest = std::string_view(text).substr(start.size());
    if (!MomentInForm(start, kStartForm) || !HasForm(rest, kRestForm) || rest.substr(4, 2) > "59")
        return false;
    program_ = parameters;
    return true;
}

} // namespace quorvane
