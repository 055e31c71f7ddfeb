#include "files/SettingsFile.h"

#include "files/AppFiles.h"
#include "tests/files/Golden.h"
#include "tests/support/FakeCodePage.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/MemoryFileStore.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kHead = "[Quorvane Software Version]\r\nQuorvane_Ver.2020\r\n";

class SettingsFileTest : public testing::Test {
protected:
    SettingsFileTest()
    {
        state.AppPath = "/opt/quorvane";
        clock.now = std::chrono::local_days{2025y / 4 / 6} + 7h;
        locale.shortDateFormat = "dd.MM.yyyy";
    }

    /// What a program that has just started reads from `bytes`.
    void Load(std::string_view bytes)
    {
        store.files[path] = bytes;
        file.LoadSettings();
    }
    void LoadLines(std::string_view lines) { Load(std::string(kHead).append(lines)); }

    ApplicationState state;
    MemoryFileStore store;
    FakeCodePage codePage;
    FixedClock clock;
    FixedLocale locale;
    SettingsFile file{state, store, codePage, clock, locale, {.major = 2, .minor = 0, .revision = 2}};
    const std::string path = FileInFolder("/opt/quorvane", "Quorvane.ini");
};

TEST_F(SettingsFileTest, EveryKeyIsReadIntoItsField)
{
    Load(GoldenBytes("settings-2.0.2.ini"));

    EXPECT_TRUE(state.RunMode);
    EXPECT_EQ(state.DefaultFolder, "D:\\M\u00e4tdata\\x=1");
    EXPECT_EQ(state.RsPort, "COM12");
    EXPECT_EQ(state.RsSpeed, "38400");
    EXPECT_EQ(state.RsDataBit, "7");
    EXPECT_EQ(state.RsParity, "E");
    EXPECT_EQ(state.RsStopBit, "1.5");
    EXPECT_EQ(state.RsFlow, 3);
    EXPECT_EQ(state.ProgramMeasureCount, 30000);
    EXPECT_EQ(state.ProgramMeasureTimeHour, 11);
    EXPECT_EQ(state.ProgramMeasureHours, 12);
    EXPECT_EQ(state.ProgramMeasureMinutes, 13.5);
    EXPECT_EQ(state.ProgramStartDate, "2024/02/29");
    EXPECT_EQ(state.ProgramStartTime, "23:59:58");
    EXPECT_EQ(state.ProgramTotalTimeHour, 14);
    EXPECT_EQ(state.ProgramTotalHours, 1234.56789012346);
    EXPECT_EQ(state.ProgramTotalMinutes, -15);
    EXPECT_EQ(state.KFactor, 0.0099);
    EXPECT_EQ(state.TotalSamples, 65500);
    EXPECT_EQ(state.MeasureTimeHour, -32768);
    EXPECT_EQ(state.MeasureTimeMinute, 32767);
    EXPECT_EQ(state.TotalHours, 18);
    EXPECT_EQ(state.TotalMinutes, 11);
    EXPECT_EQ(state.TotalSeconds, 40);
    EXPECT_EQ(state.BarGraphView, 2);
    EXPECT_EQ(state.TwaAlarm, 0.001);
    EXPECT_EQ(state.StelAlarm, 0.000001);
    EXPECT_EQ(state.CAlarm, 1e15);
    EXPECT_TRUE(state.RelativeCFlg);
    EXPECT_FALSE(state.RelativeIntegratedFlg);
    EXPECT_FALSE(state.MassCFlg);
    EXPECT_TRUE(state.MassIntegratedFlg);
    EXPECT_FALSE(state.MassTWAFlg);
    EXPECT_TRUE(state.MassSTELFlg);
    EXPECT_TRUE(state.AlarmCFlg);
    EXPECT_FALSE(state.AlarmTWAFlg);
    EXPECT_TRUE(state.AlarmSTELFlg);
    EXPECT_EQ(state.SamplingSeconds, 1); // 18 h 11 min 40 s are 65500 s for 65500 readings
    EXPECT_EQ(state.MeasureSetting2, 1);
}

TEST_F(SettingsFileTest, FileIsWrittenByteForByte)
{
    const std::string golden = GoldenBytes("settings-2.0.2.ini");
    Load(golden);
    state.MeasureSetting2 = 2;
    state.SamplingSeconds = 900; // neither has a key
    store.files[path] = "an older and longer file" + golden;

    file.SaveSettings();

    EXPECT_EQ(store.files[path], golden);
}

TEST_F(SettingsFileTest, FailedWriteLeavesTheOldFileAndTellsNobody)
{
    store.files[path] = "old";
    store.replaceFault = FileFault{FileFaultKind::NoSpace, "disk full"};
    file.SaveSettings();
    EXPECT_EQ(store.files[path], "old");
    EXPECT_EQ(store.replaceCalls, 1);
}

TEST_F(SettingsFileTest, WithoutAFileTheDefaultsHold)
{
    file.LoadSettings();

    EXPECT_TRUE(state.RunMode);
    EXPECT_EQ(state.DefaultFolder, "C:\\");
    EXPECT_EQ(state.RsPort, "COM1");
    EXPECT_EQ(state.RsSpeed, "38400");
    EXPECT_EQ(state.RsDataBit, "8");
    EXPECT_EQ(state.RsParity, "N");
    EXPECT_EQ(state.RsStopBit, "1");
    EXPECT_EQ(state.RsFlow, 3);
    EXPECT_EQ(state.ProgramMeasureCount, 100);
    EXPECT_EQ(state.ProgramMeasureTimeHour, 0);
    EXPECT_EQ(state.ProgramMeasureHours, 1);
    EXPECT_EQ(state.ProgramMeasureMinutes, 0);
    EXPECT_EQ(state.ProgramStartDate, "06.04.2025"); // today, as the user's system writes it
    EXPECT_EQ(state.ProgramStartTime, "00:00:00");
    EXPECT_EQ(state.ProgramTotalTimeHour, 0);
    EXPECT_EQ(state.ProgramTotalHours, 100);
    EXPECT_EQ(state.ProgramTotalMinutes, 0);
    EXPECT_EQ(state.KFactor, 1.3 / 1000);
    EXPECT_EQ(state.TotalSamples, 100);
    EXPECT_EQ(state.MeasureTimeHour, 0);
    EXPECT_EQ(state.MeasureTimeMinute, 1);
    EXPECT_EQ(state.TotalHours, 1);
    EXPECT_EQ(state.TotalMinutes, 40);
    EXPECT_EQ(state.TotalSeconds, 0);
    EXPECT_EQ(state.BarGraphView, 0);
    EXPECT_EQ(state.TwaAlarm, 10);
    EXPECT_EQ(state.StelAlarm, 10);
    EXPECT_EQ(state.CAlarm, 10);
    EXPECT_FALSE(state.RelativeCFlg);
    EXPECT_FALSE(state.RelativeIntegratedFlg);
    EXPECT_TRUE(state.MassCFlg && state.MassIntegratedFlg && state.MassTWAFlg && state.MassSTELFlg);
    EXPECT_TRUE(state.AlarmCFlg && state.AlarmTWAFlg && state.AlarmSTELFlg);
    EXPECT_EQ(state.SamplingSeconds, 60);
    EXPECT_EQ(state.MeasureSetting2, 1);
    EXPECT_TRUE(store.files.empty());
}

TEST_F(SettingsFileTest, LackingKeysKeepZeroNotTheDefault)
{
    LoadLines("RsPort_CH1=COM2\r\n"); // defaults are for unreadable files alone; that is meant
    EXPECT_EQ(state.RsPort, "COM2");
    EXPECT_EQ(state.RsSpeed, "");
    EXPECT_EQ(state.RsFlow, 0);
    EXPECT_FALSE(state.RunMode);
    EXPECT_EQ(state.KFactor, 0);
    EXPECT_EQ(state.SamplingSeconds, 60);
}

TEST_F(SettingsFileTest, UnreadableFilesGiveTheDefaults)
{
    struct Row {
        std::string_view what;
        std::string bytes;
    };
    const std::string head(kHead);
    const Row rows[] = {
        {"empty", ""},
        {"ends behind its first line", "[Quorvane Software Version]\r\n"},
        {"ends in its first line", "[Quorvane Software Version]"},
        {"integer too large", head + "MeasureTime_Minute= 70000\r\n"},
        {"integer too small", head + "MeasureTime_Hour=-32769\r\n"},
        {"integer that rounds to too large", head + "BarGraphViewFlg= 32767.5\r\n"},
        {"handshaking too large", head + "RsFlow_CH1= 70000\r\n"},
        {"integer beyond a double", head + "BarGraphViewFlg= 1E999\r\n"},
        {"double beyond a double", head + "TWA_Alarm=-1E999\r\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        state.RsPort = "COM2";
        state.TotalSamples = 7;
        state.RunMode = false;
        state.SamplingSeconds = 5;
        Load(row.bytes + (row.bytes.size() > kHead.size() ? "TotalMeasureTime_Hour= 9\r\n" : ""));
        EXPECT_EQ(state.RsPort, "COM1");
        EXPECT_EQ(state.TotalSamples, 100);
        EXPECT_TRUE(state.RunMode);
        EXPECT_EQ(state.TotalHours, 1);
        EXPECT_EQ(state.SamplingSeconds, 60);
    }
}

TEST_F(SettingsFileTest, DefaultsReplaceWhatWasReadButForTheSeconds)
{
    LoadLines("TotalMeasureTime_Second= 30\r\nTotalMeasureTime_Minute= 5\r\nRsPort_CH1=COM2\r\n"
              "MeasureTime_Minute= 70000\r\n");
    EXPECT_EQ(state.TotalSeconds, 30); // left out of the defaults; that is meant
    EXPECT_EQ(state.TotalMinutes, 40);
    EXPECT_EQ(state.RsPort, "COM1");
}

TEST_F(SettingsFileTest, LockedFileGivesTheDefaults)
{
    store.readFault = FileFault{FileFaultKind::InUse, "locked"};
    LoadLines("RsPort_CH1=COM2\r\n");
    EXPECT_EQ(state.RsPort, "COM1");
}

TEST_F(SettingsFileTest, RecordsAreTakenAsTheyStand)
{
    struct Row {
        std::string_view what;
        std::string_view lines;
        std::string_view folder;
    };
    const Row rows[] = {
        {"the value keeps its blanks", "DefaultFolder= C:\\x \r\n", " C:\\x "},
        {"the value keeps further equal signs", "DefaultFolder=a=b=\r\n", "a=b="},
        {"a comma ends a record", "DefaultFolder=C:\\Data,2024\r\n", "C:\\Data"},
        {"a key may follow a comma", "RsPort_CH1=COM2, DefaultFolder=x\r\n", "x"},
        {"blanks before a record are skipped", "   DefaultFolder=x\r\n", "x"},
        {"a tab is no blank", "\tDefaultFolder=x\r\n", ""},
        {"a blank before the equal sign is another key", "DefaultFolder =x\r\n", ""},
        {"keys have a case", "defaultfolder=x\r\n", ""},
        {"any section", "[Alarm]\r\nDefaultFolder=x\r\n", "x"},
        {"the later value stays", "DefaultFolder=x\r\nDefaultFolder=y\r\n", "y"},
        {"an empty later value stays too", "DefaultFolder=x\r\nDefaultFolder=\r\n", ""},
        {"lines end in LF as well", "\n[Alarm]\nDefaultFolder=x\n", "x"},
        {"the last line needs no end", "DefaultFolder=x", "x"},
        {"lines without a meaning", "\r\n \r\n[x]\r\nx\r\n=\r\nUnknown=1\r\nDefaultFolder=x\r\n", "x"},
        {"other channels count for nothing", "RsFlow_CH2= 70000\r\nRsPort_CH5=COM9\r\nDefaultFolder=x\r\n",
         "x"},
    };
    for (const Row& row : rows) {
        state.DefaultFolder.clear();
        LoadLines(row.lines);
        EXPECT_EQ(state.DefaultFolder, row.folder) << row.what;
    }
}

TEST_F(SettingsFileTest, FirstLineIsLostWhenItIsNoHeading)
{
    Load("RsPort_CH1=COM2\r\nRsParity_CH1=O\r\n");
    EXPECT_EQ(state.RsPort, "");
    EXPECT_EQ(state.RsParity, "O");
}

TEST_F(SettingsFileTest, VersionLineIsSkippedWhateverItHolds)
{
    Load("[Quorvane Software Version]\r\nRsPort_CH1=COM2\r\nRsParity_CH1=O\r\n");
    EXPECT_EQ(state.RsPort, "");
    EXPECT_EQ(state.RsParity, "O");
}

TEST_F(SettingsFileTest, BooleansAreTrueInOneFormOnly)
{
    LoadLines(
        "MassCFlg= True\r\nMassTWAFlg=True\r\nMassSTELFlg= true\r\nAlarmCFlg= True \r\nAlarmTWAFlg= 1\r\n");
    EXPECT_TRUE(state.MassCFlg);
    EXPECT_FALSE(state.MassTWAFlg);
    EXPECT_FALSE(state.MassSTELFlg);
    EXPECT_FALSE(state.AlarmCFlg);
    EXPECT_FALSE(state.AlarmTWAFlg);
}

TEST_F(SettingsFileTest, NumbersAreReadLeniently)
{
    LoadLines("BarGraphViewFlg= 2.5\r\nMeasureTime_Minute=3.5 min\r\nMeasureTime_Hour=-1.5\r\n"
              "TWA_Alarm=0.5mg\r\nSTEL_Alarm=x\r\nC_Alarm= 1e1\r\n");
    EXPECT_EQ(state.BarGraphView, 2); // a half goes to the even neighbour
    EXPECT_EQ(state.MeasureTimeMinute, 4);
    EXPECT_EQ(state.MeasureTimeHour, -2);
    EXPECT_EQ(state.TwaAlarm, 0.5);
    EXPECT_EQ(state.StelAlarm, 0);
    EXPECT_EQ(state.CAlarm, 10);
}

TEST_F(SettingsFileTest, LinkIsForced)
{
    LoadLines("RsSpeed_CH1=9600\r\nRsFlow_CH1= 0\r\n");
    EXPECT_EQ(state.RsSpeed, "38400");
    EXPECT_EQ(state.RsFlow, 3);
    LoadLines("RsSpeed_CH1=fast\r\nRsFlow_CH1=\r\n");
    EXPECT_EQ(state.RsSpeed, "38400");
    EXPECT_EQ(state.RsFlow, 3);
    LoadLines("RsSpeed_CH1= 38400.0 bd\r\n"); // the number is right, so the text stays
    EXPECT_EQ(state.RsSpeed, " 38400.0 bd");
}

TEST_F(SettingsFileTest, SamplingSecondsComeFromThePlannedRun)
{
    struct Row {
        std::string_view what;
        std::string_view lines;
        int seconds;
    };
    const Row rows[] = {
        {"120 readings in an hour", "MeasureNumber= 120\nTotalMeasureTime_Hour= 1\n", 30},
        {"minutes and seconds count",
         "MeasureNumber= 10\nTotalMeasureTime_Minute= 1\nTotalMeasureTime_Second= 10\n", 7},
        {"a half goes up", "MeasureNumber= 2\nTotalMeasureTime_Second= 5\n", 3},
        {"the longest", "MeasureNumber= 4\nTotalMeasureTime_Hour= 1\n", 900},
        {"beyond the longest", "MeasureNumber= 3\nTotalMeasureTime_Hour= 1\n", 60},
        {"the shortest", "MeasureNumber= 65500\nTotalMeasureTime_Second= 65500\n", 1},
        {"below the shortest", "MeasureNumber= 65500\nTotalMeasureTime_Second= 30000\n", 60},
        {"no readings", "MeasureNumber= 0\nTotalMeasureTime_Hour= 1\n", 60},
        {"less than one reading", "MeasureNumber= 0.5\nTotalMeasureTime_Minute= 1\n", 60},
        {"no length", "MeasureNumber= 100\n", 60},
        {"a length beyond numbers", "MeasureNumber= 1\nTotalMeasureTime_Hour= 1E308\n", 60},
    };
    for (const Row& row : rows) {
        static_cast<MeasureSettings&>(state) = {};
        LoadLines(row.lines);
        EXPECT_EQ(state.SamplingSeconds, row.seconds) << row.what;
    }
}

} // namespace
} // namespace quorvane
