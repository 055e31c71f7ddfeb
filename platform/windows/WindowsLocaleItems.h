#pragma once

#include "app/LocaleItems.h"

namespace quorvane {

/// The regional settings of the user, with what was changed in them by hand.
class WindowsLocaleItems final : public LocaleItems {
public:
    [[nodiscard]] std::string DecimalSign() const override;
    [[nodiscard]] std::string ShortDateFormat() const override;
    [[nodiscard]] std::string TimeFormat() const override;
    [[nodiscard]] std::string DateSeparator() const override;
    [[nodiscard]] std::string TimeSeparator() const override;
    [[nodiscard]] std::string Century() const override;
    [[nodiscard]] std::string HourLeadingZero() const override;
    [[nodiscard]] std::string MonthLeadingZero() const override;
    [[nodiscard]] std::string DayLeadingZero() const override;
    [[nodiscard]] std::string MorningSign() const override;
    [[nodiscard]] std::string AfternoonSign() const override;
    [[nodiscard]] std::string SystemLanguageName() const override;
};

} // namespace quorvane
