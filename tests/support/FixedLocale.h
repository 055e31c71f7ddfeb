#pragma once

#include "app/LocaleItems.h"
#include "instrument/LocalePattern.h"

namespace quorvane {

/// Regional settings that a test sets.
class FixedLocale : public LocaleItems {
public:
    std::string decimalSign = ".";
    std::string shortDateFormat = "yyyy/MM/dd";
    std::string timeFormat = "HH:mm:ss";
    std::string morningSign = "AM";
    std::string afternoonSign = "PM";
    std::string systemLanguageName = "English";

    std::string DecimalSign() const override { return decimalSign; }
    std::string ShortDateFormat() const override { return shortDateFormat; }
    std::string TimeFormat() const override { return timeFormat; }
    std::string DateSeparator() const override { return SeparatorAfter(shortDateFormat, "yMd"); }
    std::string TimeSeparator() const override { return SeparatorAfter(timeFormat, "Hh"); }
    std::string Century() const override { return CenturyItem(shortDateFormat); }
    std::string HourLeadingZero() const override { return LeadingZeroItem(timeFormat, "Hh"); }
    std::string MonthLeadingZero() const override { return LeadingZeroItem(shortDateFormat, "M"); }
    std::string DayLeadingZero() const override { return LeadingZeroItem(shortDateFormat, "d"); }
    std::string MorningSign() const override { return morningSign; }
    std::string AfternoonSign() const override { return afternoonSign; }
    std::string SystemLanguageName() const override { return systemLanguageName; }
};

} // namespace quorvane
