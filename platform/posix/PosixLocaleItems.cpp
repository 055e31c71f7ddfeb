#include "platform/posix/PosixLocaleItems.h"

#include "instrument/LocalePattern.h"
#include "platform/Platform.h"
#include "platform/posix/LanguageName.h"
#include "platform/posix/StrftimePattern.h"

#include <algorithm>
#include <langinfo.h>
#include <locale.h>

namespace quorvane {
namespace {

/// One category of the user's locale, or of the "C" locale when the user's is not installed.
class UserLocale {
public:
    explicit UserLocale(int categoryMask) : locale_(::newlocale(categoryMask | LC_CTYPE_MASK, "", nullptr))
    {
        if (locale_ == nullptr)
            locale_ = ::newlocale(LC_ALL_MASK, "C", nullptr);
    }
    ~UserLocale()
    {
        if (locale_ != nullptr)
            ::freelocale(locale_);
    }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    /// The item's text; empty when it is not UTF-8.
    [[nodiscard]] std::string Text(nl_item item) const
    {
        if (locale_ == nullptr)
            return {};
        const std::string text = ::nl_langinfo_l(item, locale_);
        const bool ascii = std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
        return ascii || std::string_view("UTF-8") == ::nl_langinfo_l(CODESET, locale_) ? text : std::string();
    }

private:
    locale_t locale_;
};

std::string TextOr(nl_item item, int categoryMask, const char* fallback)
{
    const std::string text = UserLocale(categoryMask).Text(item);
    return text.empty() ? fallback : text;
}

} // namespace

std::string PosixLocaleItems::DecimalSign() const
{
    return TextOr(RADIXCHAR, LC_NUMERIC_MASK, ".");
}

std::string PosixLocaleItems::ShortDateFormat() const
{
    return DatePattern(UserLocale(LC_TIME_MASK).Text(D_FMT));
}

std::string PosixLocaleItems::TimeFormat() const
{
    return TimePattern(UserLocale(LC_TIME_MASK).Text(T_FMT));
}

std::string PosixLocaleItems::DateSeparator() const
{
    return SeparatorAfter(ShortDateFormat(), "yMd");
}

std::string PosixLocaleItems::TimeSeparator() const
{
    return SeparatorAfter(TimeFormat(), "Hh");
}

std::string PosixLocaleItems::Century() const
{
    return CenturyItem(ShortDateFormat());
}

std::string PosixLocaleItems::HourLeadingZero() const
{
    return LeadingZeroItem(TimeFormat(), "Hh");
}

std::string PosixLocaleItems::MonthLeadingZero() const
{
    return LeadingZeroItem(ShortDateFormat(), "M");
}

std::string PosixLocaleItems::DayLeadingZero() const
{
    return LeadingZeroItem(ShortDateFormat(), "d");
}

std::string PosixLocaleItems::MorningSign() const
{
    return TextOr(AM_STR, LC_TIME_MASK, "AM");
}

std::string PosixLocaleItems::AfternoonSign() const
{
    return TextOr(PM_STR, LC_TIME_MASK, "PM");
}

std::string PosixLocaleItems::SystemLanguageName() const
{
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const auto value = EnvironmentText(name);
        if (value && !value->empty())
            return LanguageName(*value);
    }
    return LanguageName("");
}

} // namespace quorvane
