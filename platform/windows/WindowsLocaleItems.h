#pragma once

#include "app/LocaleItems.h"

namespace quorvane {

/// The regional settings of the user, with what was changed in them by hand, or those of a named region.
class WindowsLocaleItems final : public LocaleItems {
public:
    /// @param region  "de-DE"; must stay as long as the object; none for the user's
    explicit WindowsLocaleItems(const wchar_t* region = nullptr) : region_(region) {}

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

private:
    const wchar_t* region_;
};

} // namespace quorvane
