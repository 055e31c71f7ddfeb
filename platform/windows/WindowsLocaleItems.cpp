#include "platform/windows/WindowsLocaleItems.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace quorvane {
namespace {

static_assert(LOCALE_NAME_USER_DEFAULT == nullptr);

std::string Item(const wchar_t* localeName, LCTYPE item, const char* fallback)
{
    const int length = ::GetLocaleInfoEx(localeName, item, nullptr, 0);
    if (length <= 1) // the terminator counts
        return fallback;
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    ::GetLocaleInfoEx(localeName, item, text.data(), length);
    text.pop_back();
    return Utf8(text);
}

} // namespace

std::string WindowsLocaleItems::DecimalSign() const
{
    return Item(region_, LOCALE_SDECIMAL, ".");
}

std::string WindowsLocaleItems::ShortDateFormat() const
{
    return Item(region_, LOCALE_SSHORTDATE, "yyyy/MM/dd");
}

std::string WindowsLocaleItems::TimeFormat() const
{
    return Item(region_, LOCALE_STIMEFORMAT, "HH:mm:ss");
}

std::string WindowsLocaleItems::DateSeparator() const
{
    return Item(region_, LOCALE_SDATE, "/");
}

std::string WindowsLocaleItems::TimeSeparator() const
{
    return Item(region_, LOCALE_STIME, ":");
}

std::string WindowsLocaleItems::Century() const
{
    return Item(region_, LOCALE_ICENTURY, "1");
}

std::string WindowsLocaleItems::HourLeadingZero() const
{
    return Item(region_, LOCALE_ITLZERO, "1");
}

std::string WindowsLocaleItems::MonthLeadingZero() const
{
    return Item(region_, LOCALE_IMONLZERO, "1");
}

std::string WindowsLocaleItems::DayLeadingZero() const
{
    return Item(region_, LOCALE_IDAYLZERO, "1");
}

std::string WindowsLocaleItems::MorningSign() const
{
    return Item(region_, LOCALE_S1159, "AM");
}

std::string WindowsLocaleItems::AfternoonSign() const
{
    return Item(region_, LOCALE_S2359, "PM");
}

std::string WindowsLocaleItems::SystemLanguageName() const
{
    return Item(LOCALE_NAME_SYSTEM_DEFAULT, LOCALE_SENGLISHLANGUAGENAME, "English");
}

} // namespace quorvane
