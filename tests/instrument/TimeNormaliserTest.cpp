#include "instrument/TimeNormaliser.h"

#include "tests/support/FixedLocale.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr LocalMoment kMidnight = std::chrono::local_days{2024y / 3 / 5};

/// A computer and its program.
struct Computer {
    FixedLocale locale;
    LocaleDescription description;
    ProgramPlace place;
    StringTable table{TableLanguage::English};

    std::string NormalisedTime(LocalMoment now)
    {
        return quorvane::NormalisedTime(description, locale, Texts(table, place), now);
    }
};

TEST(TimeNormaliser, GivesTwentyFourHoursWhateverTheFormat)
{
    struct Row {
        std::string_view what;
        std::string format;
        std::chrono::seconds time;
        std::string_view text;
    };
    const Row rows[] = {
        {"24 hours", "HH:mm:ss", 23h + 59min + 58s, "23:59:58"},
        {"no leading zeros", "H:m:s", 9h + 5min + 7s, "09:05:07"},
        {"midnight without leading zeros", "H:m:s", 0h, "00:00:00"},
        {"no seconds", "HH:mm", 10h + 11min + 12s, "10:11:00"},
        {"no separators", "HHmmss", 13h + 5min + 9s, "13:05:09"},
        {"points", "H.mm.ss", 13h + 5min + 9s, "13:05:09"},
        {"words", "HH'h'mm 'min'", 13h + 5min, "13:05:00"},
        {"words with the marker's letter", "h 'hrs tt' mm tt", 13h + 5min, "13:05:00"},
        {"1 in the afternoon", "h:mm:ss tt", 13h + 5min + 9s, "13:05:09"},
        {"1 at night", "h:mm:ss tt", 1h + 5min + 9s, "01:05:09"},
        {"marker one further than in the format", "h:mm:ss tt", 22h + 5min + 9s, "22:05:09"},
        {"marker three further", "h:m:s tt", 23h + 55min + 59s, "23:55:59"},
        {"marker first", "tt hh:mm:ss", 13h + 5min + 9s, "13:05:09"},
        {"marker first, two blanks", "tt  h:mm:ss", 13h + 5min + 9s, "13:05:09"},
        {"marker first, no blank", "tth:mm:ss", 22h + 5min + 9s, "22:05:09"},
        {"marker first, its only blank behind the time", "tth:mm 'Uhr'", 13h + 5min, "13:05:00"},
        {"marker in the middle", "h tt:mm:ss", 22h + 5min + 9s, "22:05:09"},
        {"marker of one letter", "h:mm:ss t", 13h + 5min + 9s, "13:05:09"},
        {"marker beside 24 hours", "HH:mm:ss tt", 13h + 5min + 9s, "13:05:09"},
        // Meant: 12 is no exception.
        {"half past noon, narrow hour", "h:mm:ss tt", 12h + 30min, "24:30:00"},
        {"half past noon, wide hour", "hh:mm:ss tt", 12h + 30min, "24:30:00"},
        {"half past noon, marker first", "tt hh:mm:ss", 12h + 30min, "24:30:00"},
        {"half past midnight", "h:mm:ss tt", 30min, "12:30:00"},
        {"half past midnight, marker first", "tt hh:mm:ss", 30min, "12:30:00"},
    };
    for (const Row& row : rows) {
        Computer computer;
        computer.locale.timeFormat = row.format;
        EXPECT_EQ(computer.NormalisedTime(kMidnight + row.time), row.text) << row.what;
    }
}

TEST(TimeNormaliser, KnowsTheAfternoonInEveryLanguage)
{
    struct Row {
        std::string_view what;
        std::string morning, afternoon;
        TableLanguage table;
        std::int16_t offset;
    };
    const Row rows[] = {
        {"Japanese", "午前", "午後", TableLanguage::Japanese, 0},
        {"Japanese computer with English signs", "AM", "PM", TableLanguage::Japanese, 0},
        {"English program on a Japanese computer", "午前", "午後", TableLanguage::English, 10000},
        {"signs that hold blanks", "a. m.", "p. m.", TableLanguage::English, 0},
        {"long signs", "vorm.", "nachm.", TableLanguage::English, 0},
        {"signs of one letter", "A", "P", TableLanguage::English, 0},
        {"no sign in the morning", "", "PM", TableLanguage::English, 0},
    };
    for (const Row& row : rows)
        for (const char* format : {"h:mm:ss tt", "tt hh:mm:ss", "tth:mm:ss"}) {
            Computer computer;
            computer.table = StringTable(row.table);
            computer.place.LanguageOffset = row.offset;
            computer.locale.morningSign = row.morning;
            computer.locale.afternoonSign = row.afternoon;
            computer.locale.timeFormat = format;
            EXPECT_EQ(computer.NormalisedTime(kMidnight + 9h + 1min + 2s), "09:01:02") << row.what << format;
            EXPECT_EQ(computer.NormalisedTime(kMidnight + 22h + 1min + 2s), "22:01:02") << row.what << format;
        }
}

TEST(TimeNormaliser, FollowsTheRegionalSettings)
{
    Computer computer;
    EXPECT_EQ(computer.NormalisedTime(kMidnight + 12h), "12:00:00");
    computer.locale.timeFormat = "h:mm:ss tt";
    EXPECT_EQ(computer.NormalisedTime(kMidnight + 12h), "24:00:00");
    computer.locale.timeFormat = "H:mm";
    EXPECT_EQ(computer.NormalisedTime(kMidnight + 12h), "12:00:00");
}

} // namespace
} // namespace quorvane
