#pragma once

#include "app/LocaleItems.h"

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
    std::string MorningSign() const override { return morningSign; }
    std::string AfternoonSign() const override { return afternoonSign; }
    std::string SystemLanguageName() const override { return systemLanguageName; }
};

} // namespace quorvane
