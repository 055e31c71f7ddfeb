#pragma once

#include <string>

namespace quorvane {

/// How the user's system writes dates, times and numbers. Read afresh at each call, so a change of the
/// regional settings while the program runs takes effect.
class LocaleItems {
public:
    virtual ~LocaleItems() = default;
    /// Decimal sign of the user's number format, "." or ",".
    [[nodiscard]] virtual std::string DecimalSign() const = 0;
    /// Short date pattern: y, M and d, doubled for leading zeros, yyyy for four digits: "yyyy/MM/dd".
    [[nodiscard]] virtual std::string ShortDateFormat() const = 0;
    /// Time pattern: H (24 hours) or h (12 hours), m, s, doubled for leading zeros, tt for AM/PM: "HH:mm:ss".
    [[nodiscard]] virtual std::string TimeFormat() const = 0;
    /// What stands between the fields of a date and of a time: "/", ". ", ":". Empty when nothing does.
    [[nodiscard]] virtual std::string DateSeparator() const = 0;
    [[nodiscard]] virtual std::string TimeSeparator() const = 0;
    /// "1" when short dates have years of four digits, "0" for two.
    [[nodiscard]] virtual std::string Century() const = 0;
    /// "1" when the field is written with a leading zero, "0" when not.
    [[nodiscard]] virtual std::string HourLeadingZero() const = 0;
    [[nodiscard]] virtual std::string MonthLeadingZero() const = 0;
    [[nodiscard]] virtual std::string DayLeadingZero() const = 0;
    /// The texts that stand for tt.
    [[nodiscard]] virtual std::string MorningSign() const = 0;
    [[nodiscard]] virtual std::string AfternoonSign() const = 0;
    /// English name of the system's language: "Japanese", "English".
    [[nodiscard]] virtual std::string SystemLanguageName() const = 0;
};

} // namespace quorvane
