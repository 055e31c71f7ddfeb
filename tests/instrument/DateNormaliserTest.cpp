#include "instrument/DateNormaliser.h"

#include "tests/support/FixedLocale.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::local_days;

constexpr LocalMoment kToday = local_days{2024y / 11 / 30};

TEST(DateNormaliser, GivesTheInstrumentsForm)
{
    struct Row {
        std::string_view what;
        std::string format;
        std::string_view text, date;
    };
    const Row rows[] = {
        {"day first", "dd.MM.yyyy", "05.03.2024", "2024/03/05"},
        {"one-digit month and day, today has two", "d.M.yyyy", "5.3.2024", "2024/03/05"},
        {"two-digit month and day", "M/d/yyyy", "12/31/1999", "1999/12/31"},
        {"blanks after the separator", "d. M. yyyy", "5. 3. 2024", "2024/03/05"},
        {"separator at the end", "yyyy. M. d.", "2024. 3. 5.", "2024/03/05"},
        {"word at the end", "d.M.yyyy 'г.'", "5.3.2024 г.", "2024/03/05"},
        {"word at the beginning", "'den 'd.M.yyyy", "den 5.3.2024", "2024/03/05"},
        {"characters for separators", "yyyy'年'M'月'd'日'", "2024年3月5日", "2024/03/05"},
        {"no-break blanks", "d/M/yyyy", "5\u00A0/\u202F3/ 2024\u200F", "2024/03/05"},

        {"two digits, first of 2000", "dd/MM/yy", "05/03/01", "2001/03/05"},
        {"two digits, last of 2000", "dd/MM/yy", "05/03/79", "2079/03/05"},
        {"two digits, first of 1900", "dd/MM/yy", "05/03/80", "1980/03/05"},
        {"two digits, last of 1900", "dd/MM/yy", "05/03/99", "1999/03/05"},
        {"one digit", "d/M/y", "5/3/9", "2009/03/05"},
        {"two digits where four are usual", "dd.MM.yyyy", "05.03.24", "2024/03/05"},
        {"four digits where two are usual", "MM/dd/yy", "03/05/2024", "2024/03/05"},
        {"early year", "yyyy-MM-dd", "0099-03-05", "0099/03/05"},

        {"zero year of two digits", "dd/MM/yy", "05/03/00", "00/00/00"},
        {"zero year of four digits", "yyyy/MM/dd", "0000/03/05", "0000/00/00"},
        {"short zero year", "yyyy/MM/dd", "00/03/05", "0000/00/00"},
        {"long zero year", "dd/MM/yy", "05/03/0000", "00/00/00"},
        {"nothing", "yyyy/MM/dd", "", "0000/00/00"},
        {"nothing, two-digit years", "MM/dd/yy", "", "00/00/00"},
        {"empty year", "d.M.yyyy", "5.3.", "0000/00/00"},
        {"missing year", "d.M.yyyy", "5.3", "0000/00/00"},
        {"three-digit year", "yyyy/MM/dd", "113/03/05", "0000/00/00"},
        {"five-digit year", "yyyy/MM/dd", "20245/03/05", "0000/00/00"},
        {"mistyped year", "d.M.yyyy", "5.3.20a4", "0000/00/00"},
        {"negative year", "d.M.yyyy", "5.3.-24", "0000/00/00"},
        {"no separator", "yyyyMMdd", "20240305", "0000/00/00"},
        {"no date", "yyyy/MM/dd", "\xFF/\xE5//", "0000/00/00"},

        {"no month and day", "yyyy/MM/dd", "2024", "2024/00/00"},
        {"mistyped month, long day", "yyyy/MM/dd", "2024/x/123", "2024/00/00"},
        {"no calendar", "yyyy/MM/dd", "2024/13/45", "2024/13/45"},
    };
    for (const Row& row : rows) {
        FixedLocale locale;
        locale.shortDateFormat = row.format;
        LocaleDescription description;
        EXPECT_EQ(NormalisedDate(row.text, description, locale, kToday), row.date) << row.what;
    }
}

} // namespace
} // namespace quorvane
