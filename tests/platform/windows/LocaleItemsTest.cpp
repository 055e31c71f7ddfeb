#include "instrument/DateTimeText.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsLocaleItems.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>
#include <windows.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::local_days;

std::string AnsiItem(LCID locale, LCTYPE item)
{
    std::array<char, 200> text{};
    EXPECT_GT(::GetLocaleInfoA(locale, item, text.data(), static_cast<int>(text.size())), 0) << item;
    return Utf8(WideFrom(::GetACP(), text.data()));
}

TEST(WindowsLocaleItems, AreTheUsersOwn)
{
    using Item = std::string (LocaleItems::*)() const;
    const std::pair<LCTYPE, Item> rows[] = {
        {14, &LocaleItems::DecimalSign},     {31, &LocaleItems::ShortDateFormat},
        {4099, &LocaleItems::TimeFormat},    {29, &LocaleItems::DateSeparator},
        {30, &LocaleItems::TimeSeparator},   {36, &LocaleItems::Century},
        {37, &LocaleItems::HourLeadingZero}, {LOCALE_IMONLZERO, &LocaleItems::MonthLeadingZero},
        {40, &LocaleItems::MorningSign},     {LOCALE_IDAYLZERO, &LocaleItems::DayLeadingZero},
        {41, &LocaleItems::AfternoonSign},
    };
    const WindowsLocaleItems items;
    for (const auto& [number, item] : rows)
        EXPECT_EQ((items.*item)(), AnsiItem(::GetUserDefaultLCID(), number)) << number;
    EXPECT_EQ(items.SystemLanguageName(), AnsiItem(LOCALE_SYSTEM_DEFAULT, LOCALE_SENGLANGUAGE));
}

std::vector<std::wstring> Regions()
{
    std::vector<std::wstring> names;
    ::EnumSystemLocalesEx(
        [](wchar_t* name, DWORD, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<std::wstring>*>(list)->emplace_back(name);
            return TRUE;
        },
        LOCALE_SPECIFICDATA, reinterpret_cast<LPARAM>(&names), nullptr);
    return names;
}

/// Whether core writes dates of that region as the system does: in figures, and of this calendar.
bool HasFigures(const std::wstring& region, std::string_view pattern)
{
    DWORD calendar = 0;
    ::GetLocaleInfoEx(region.c_str(), LOCALE_ICALENDARTYPE | LOCALE_RETURN_NUMBER,
                      reinterpret_cast<wchar_t*>(&calendar), sizeof calendar / sizeof(wchar_t));
    const auto has = [&](std::string_view text) { return pattern.find(text) != std::string_view::npos; };
    return calendar == CAL_GREGORIAN && !has("MMM") && !has("ddd") && !has("g");
}

std::string SystemText(const wchar_t* region, const SYSTEMTIME& moment)
{
    std::array<wchar_t, 200> date{};
    std::array<wchar_t, 200> time{};
    ::GetDateFormatEx(region, DATE_SHORTDATE, &moment, nullptr, date.data(), static_cast<int>(date.size()),
                      nullptr);
    ::GetTimeFormatEx(region, 0, &moment, nullptr, time.data(), static_cast<int>(time.size()));
    return Utf8(date.data()) + " " + Utf8(time.data());
}

std::string OwnText(const WindowsLocaleItems& items, const SYSTEMTIME& moment)
{
    const std::chrono::year_month_day date{std::chrono::year{moment.wYear}, std::chrono::month{moment.wMonth},
                                           std::chrono::day{moment.wDay}};
    return SystemDateTimeText(
        local_days{date} + moment.wHour * 1h + moment.wMinute * 1min + moment.wSecond * 1s, items);
}

TEST(DateTimeText, IsTheSystemsInEveryRegion)
{
    constexpr SYSTEMTIME kMoments[] = {
        {2024, 3, 0, 5, 9, 4, 7, 0},
        {2009, 12, 0, 31, 13, 45, 30, 0},
        {2024, 2, 0, 29, 0, 0, 0, 0},
        {2024, 10, 0, 1, 12, 30, 0, 0},
    };
    std::vector<std::wstring> tried;
    for (const std::wstring& region : Regions()) {
        const WindowsLocaleItems items(region.c_str());
        if (!HasFigures(region, items.ShortDateFormat()))
            continue;
        tried.push_back(region);
        const std::string date = items.ShortDateFormat();
        EXPECT_EQ(items.DayLeadingZero() == "1", date.find("dd") != std::string::npos) << Utf8(region);
        EXPECT_EQ(items.MonthLeadingZero() == "1", date.find("MM") != std::string::npos) << Utf8(region);
        for (const SYSTEMTIME& moment : kMoments)
            EXPECT_EQ(OwnText(items, moment), SystemText(region.c_str(), moment)) << Utf8(region);
    }
    EXPECT_THAT(tried, testing::IsSupersetOf({L"ja-JP", L"en-US", L"de-DE", L"ko-KR", L"bg-BG"}));
    EXPECT_GT(tried.size(), 100U);
}

TEST(DateTimeText, FollowsPatternsOfTheUsersOwnAsTheSystemDoes)
{
    constexpr SYSTEMTIME kMoment{2009, 2, 0, 3, 13, 4, 5, 0};
    for (const char* pattern : {"d.M.yyyy 'g.'", "yy/M/d", "yyy", "yyyyy-MM", "'day' d ''", "d 'o''clock'"}) {
        std::array<wchar_t, 200> text{};
        ::GetDateFormatEx(L"en-US", 0, &kMoment, Wide(pattern).c_str(), text.data(),
                          static_cast<int>(text.size()), nullptr);
        EXPECT_EQ(
            TextInPattern(local_days{2009y / 2 / 3} + 13h + 4min + 5s, pattern, WindowsLocaleItems(L"en-US")),
            Utf8(text.data()))
            << pattern;
    }
    for (const char* pattern : {"tt hh.m.s", "H 'h' mm", "HHH:mmm:sss", "h ttt", "'x' ''' s"}) {
        std::array<wchar_t, 200> text{};
        ::GetTimeFormatEx(L"en-US", 0, &kMoment, Wide(pattern).c_str(), text.data(),
                          static_cast<int>(text.size()));
        EXPECT_EQ(
            TextInPattern(local_days{2009y / 2 / 3} + 13h + 4min + 5s, pattern, WindowsLocaleItems(L"en-US")),
            Utf8(text.data()))
            << pattern;
    }
}

} // namespace
} // namespace quorvane
