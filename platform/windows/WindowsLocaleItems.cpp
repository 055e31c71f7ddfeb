#include "platform/windows/WindowsLocaleItems.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace quorvane {
namespace {

static_assert(LOCALE_NAME_USER_DEFAULT == nullptr);

/// An item of a locale that `ask` knows; its length is asked for first.
template <typename Ask>
std::string Item(const Ask& ask, const char* fallback)
{
    const int length = ask(nullptr, 0);
    if (length <= 1) // the terminator counts
        return fallback;
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    ask(text.data(), length);
    text.pop_back();
    return Utf8(text);
}

std::string Item(const wchar_t* localeName, LCTYPE item, const char* fallback)
{
    return Item([&](wchar_t* text, int size) { return ::GetLocaleInfoEx(localeName, item, text, size); },
                fallback);
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
    // By its number: not every system knows the default one by its name.
    return Item(
        [](wchar_t* text, int size) {
            return ::GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_SENGLISHLANGUAGENAME, text, size);
        },
        ""); // which stands for no language that the program knows
}

} // namespace quorvane
