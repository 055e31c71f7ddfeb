#include "files/SettingsFile.h"

#include "files/AppFiles.h"
#include "tests/files/Golden.h"
#include "tests/support/FakeCodePage.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/MemoryFileStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

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
    void LoadLines(std::string_view lines)
    {
        Load("[Quorvane Software Version]\r\nQuorvane_Ver.2020\r\n" + std::string(lines));
    }

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

    EXPECT_THAT(
        (std::vector{state.DefaultFolder, state.RsPort, state.RsSpeed, state.RsDataBit, state.RsParity,
                     state.RsStopBit, state.ProgramStartDate, state.ProgramStartTime}),
        ElementsAre("D:\\M\u00e4tdata\\x=1", "COM12", "38400", "7", "E", "1.5", "2024/02/29", "23:59:58"));
    // The measuring program's keys stand one behind their fields, from ..._Hour= on; that is meant.
    EXPECT_THAT((std::vector{state.ProgramMeasureCount, state.ProgramMeasureTimeHour,
                             state.ProgramMeasureHours, state.ProgramMeasureMinutes,
                             state.ProgramTotalTimeHour, state.ProgramTotalHours, state.ProgramTotalMinutes}),
                ElementsAre(30000, 11, 12, 13.5, 14, 1234.56789012346, -15));
    EXPECT_THAT((std::vector{state.KFactor, state.TotalSamples, state.TotalHours, state.TotalMinutes,
                             state.TotalSeconds, state.TwaAlarm, state.StelAlarm, state.CAlarm}),
                ElementsAre(0.0099, 65500, 18, 11, 40, 0.001, 0.000001, 1e15));
    EXPECT_THAT((std::vector{state.RsFlow, state.MeasureTimeHour, state.MeasureTimeMinute, state.BarGraphView,
                             state.SamplingSeconds, state.MeasureSetting2}),
                ElementsAre(3, -32768, 32767, 2, 1, 1)); // 18 h 11 min 40 s are 65500 s for 65500 readings
    EXPECT_THAT(
        (std::vector<bool>{state.RunMode, state.RelativeCFlg, state.RelativeIntegratedFlg, state.MassCFlg,
                           state.MassIntegratedFlg, state.MassTWAFlg, state.MassSTELFlg, state.AlarmCFlg,
                           state.AlarmTWAFlg, state.AlarmSTELFlg}),
        ElementsAre(true, true, false, false, true, false, true, true, false, true));
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

    store.replaceFault = FileFault{FileFaultKind::NoSpace, "disk full"};
    state.RunMode = false;
    file.SaveSettings();
    EXPECT_EQ(store.files[path], golden) << "a failed write leaves the old file";
}

TEST_F(SettingsFileTest, WithoutAFileTheDefaultsHold)
{
    file.LoadSettings();
    EXPECT_TRUE(store.files.empty());
    EXPECT_EQ(state.SamplingSeconds, 60);
    EXPECT_EQ(state.MeasureSetting2, 1);
    file.SaveSettings();
    EXPECT_EQ(store.files[path], GoldenBytes("settings-default.ini"));
}

TEST_F(SettingsFileTest, LackingKeysKeepZeroNotTheDefault)
{
    LoadLines("RsPort_CH1=COM2\r\n"); // defaults are for unreadable files alone; that is meant
    EXPECT_EQ(state.RsPort, "COM2");
    EXPECT_EQ(state.RsSpeed, "");
    EXPECT_EQ(state.RsFlow, 0);
    EXPECT_EQ(state.KFactor, 0);
    EXPECT_EQ(state.SamplingSeconds, 60);
}

TEST_F(SettingsFileTest, UnreadableFilesGiveTheDefaults)
{
    for (const std::string_view bytes : {"", "[Quorvane Software Version]\r\n"}) {
        state.RsPort = "COM2";
        state.SamplingSeconds = 5;
        Load(bytes);
        EXPECT_EQ(state.RsPort, "COM1");
        EXPECT_EQ(state.SamplingSeconds, 60);
    }
    store.readFault = FileFault{FileFaultKind::InUse, "locked"};
    LoadLines("RsPort_CH1=COM2\r\n");
    EXPECT_EQ(state.RsPort, "COM1");
}

TEST_F(SettingsFileTest, AFileCutAnywhereKeepsEveryLineThatIsWhole)
{
    const std::string whole = GoldenBytes("settings-2.0.2.ini");
    for (std::size_t cut = 0; cut < whole.size(); ++cut) {
        state = {};
        state.AppPath = "/opt/quorvane";
        Load(whole.substr(0, cut));
        EXPECT_TRUE(std::string_view("COM12").starts_with(state.RsPort)) << cut; // or the default, COM1
        const std::size_t wholeLines = cut == 0 ? 0 : whole.rfind('\n', cut - 1) + 1;
        if (wholeLines <= whole.find('\n') + 1)
            continue; // the defaults, or a state without settings
        file.SaveSettings();
        EXPECT_EQ(store.files[path].substr(0, wholeLines), whole.substr(0, wholeLines)) << cut;
    }
}

TEST_F(SettingsFileTest, NumbersBeyondTheirFieldGiveTheDefaultsButForTheSeconds)
{
    for (const std::string line :
         {"MeasureTime_Minute= 70000", "MeasureTime_Hour=-32769", "RsFlow_CH1= 70000",
          "BarGraphViewFlg= 32767.5", "BarGraphViewFlg= 1E999", "TWA_Alarm=-1E999"}) {
        SCOPED_TRACE(line);
        static_cast<MeasureSettings&>(state) = {};
        LoadLines("TotalMeasureTime_Second= 30\r\nTotalMeasureTime_Minute= 5\r\nRsPort_CH1=COM2\r\n" + line +
                  "\r\nTotalMeasureTime_Hour= 9\r\n");
        EXPECT_EQ(state.TotalSeconds, 30); // left out of the defaults; that is meant
        EXPECT_EQ(state.TotalMinutes, 40);
        EXPECT_EQ(state.TotalHours, 1);
        EXPECT_EQ(state.RsPort, "COM1");
    }
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
        {"the later value stays", "DefaultFolder=x\r\nDefaultFolder=\r\n", ""},
        {"lines end in LF as well", "\n[Alarm]\nDefaultFolder=x\n", "x"},
        {"the last line needs no end", "DefaultFolder=x", "x"},
        {"lines without a meaning", "\r\n \r\n[x]\r\nx\r\n=\r\nUnknown=1\r\nDefaultFolder=x\r\n", "x"},
    };
    for (const Row& row : rows) {
        state.DefaultFolder.clear();
        LoadLines(row.lines);
        EXPECT_EQ(state.DefaultFolder, row.folder) << row.what;
    }
}

TEST_F(SettingsFileTest, LinesOfHeadingAreLostWhateverTheyHold)
{
    for (const std::string heading : {"", "[Quorvane Software Version]\r\n"}) {
        Load(heading + "RsPort_CH1=COM2\r\nRsParity_CH1=O\r\n");
        EXPECT_EQ(state.RsPort, "");
        EXPECT_EQ(state.RsParity, "O");
    }
}

TEST_F(SettingsFileTest, ValuesAreReadLeniently)
{
    LoadLines(
        "MassCFlg= True\r\nMassTWAFlg=True\r\nMassSTELFlg= true\r\nAlarmCFlg= True \r\nAlarmTWAFlg= 1\r\n"
        "BarGraphViewFlg= 2.5\r\nMeasureTime_Minute=3.5 min\r\nTWA_Alarm=0.5mg\r\nSTEL_Alarm=x\r\n");
    EXPECT_TRUE(state.MassCFlg); // flags are true in one form only
    EXPECT_FALSE(state.MassTWAFlg || state.MassSTELFlg || state.AlarmCFlg || state.AlarmTWAFlg);
    EXPECT_EQ(state.BarGraphView, 2); // a half goes to the even neighbour
    EXPECT_EQ(state.MeasureTimeMinute, 4);
    EXPECT_EQ(state.TwaAlarm, 0.5);
    EXPECT_EQ(state.StelAlarm, 0);
}

TEST_F(SettingsFileTest, LinkIsForced)
{
    for (const std::string_view lines :
         {"RsSpeed_CH1=9600\r\nRsFlow_CH1= 0\r\n", "RsSpeed_CH1=fast\r\nRsFlow_CH1=\r\n"}) {
        LoadLines(lines);
        EXPECT_EQ(state.RsSpeed, "38400");
        EXPECT_EQ(state.RsFlow, 3);
    }
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
        {"minutes count", "MeasureNumber= 10\nTotalMeasureTime_Minute= 1\nTotalMeasureTime_Second= 10\n", 7},
        {"a half goes up", "MeasureNumber= 2\nTotalMeasureTime_Second= 5\n", 3},
        {"the longest", "MeasureNumber= 4\nTotalMeasureTime_Hour= 1\n", 900},
        {"beyond the longest", "MeasureNumber= 3\nTotalMeasureTime_Hour= 1\n", 60},
        {"the shortest", "MeasureNumber= 65500\nTotalMeasureTime_Second= 65500\n", 1},
        {"below the shortest", "MeasureNumber= 65500\nTotalMeasureTime_Second= 30000\n", 60},
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
