#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// Where the program lives and which language it speaks.
struct ProgramPlace {
    std::string AppPath;             ///< folder of the program's own files, UTF-8, as the system writes it
    std::int16_t LanguageOffset = 0; ///< 0 or 10000, added to every text number
};

/// What decides the language offset.
struct LanguageSettings {
    std::int16_t LanguageMode = 0;  ///< 0 the system's own language, 1 English; from "Language.dat"
    std::string SystemLanguageName; ///< English name of the system's language: "Japanese"
};

/// The machine, for the about box and for support; nothing in a measurement depends on it.
struct MachineFacts {
    std::int16_t OsKind = 0; ///< class of the operating system, see `ClassifySystem`
    std::string CpuDescription;
    std::string CpuName;
    std::string CpuManufacturer;
    double CpuCurrentClockSpeed = 0; ///< MHz
    double CpuMaxClockSpeed = 0;     ///< MHz
    double CpuL2CacheSize = 0;       ///< KB, 0 when unknown
    bool CpuAwaited = false;         ///< the system has been asked for these and has not answered yet
};

/// How the user's system writes dates and times; filled by `AnalyseLocale` before every conversion.
struct LocaleDescription {
    std::string ShortDateFormat; ///< "yyyy/MM/dd"
    std::string DateSeparator;   ///< one character
    std::int16_t YearDigits = 0; ///< 2 or 4
    std::int16_t DayLeadingZero = 0;
    std::int16_t MonthLeadingZero = 0;
    std::int16_t DateOrder = 0; ///< 1 y-m-d, 2 y-d-m, 3 m-d-y, 4 m-y-d, 5 d-m-y, 6 d-y-m
    std::int16_t YearPos = 0;   ///< characters, from 1, of the fields in today's date as the system writes it
    std::int16_t MonthPos = 0;
    std::int16_t DayPos = 0;
    std::string TimeFormat; ///< "HH:mm:ss"
    std::string TimeSeparator;
    std::int16_t HourLeadingZero = 0;
};

/// What the options dialog edits.
struct ComputerSettings {
    bool RunMode = false;      ///< true: readings come from the instrument; false: they are simulated
    std::string DefaultFolder; ///< where file dialogs start
};

/// For whom the folder chooser works.
struct FolderChooserMode {
    std::int16_t ChooserMode = 0; ///< 1: it chooses `DefaultFolder` for the options; else it changes nothing
};

/// Readings of a run, and seconds from one to the next, at most; at least 1 of each.
inline constexpr int kMaxSamples = 65500;
inline constexpr int kMaxSamplingSeconds = 900;
/// Range of the exposure limits, mg/m3.
inline constexpr double kLowestAlarmLimit = 0.001;
inline constexpr double kHighestAlarmLimit = 10;

/// The serial line. All texts as the settings file holds them.
struct PortSettings {
    std::string RsPort;      ///< "COM" and the port number
    std::string RsSpeed;     ///< bits per second
    std::string RsDataBit;   ///< "7" or "8"
    std::string RsParity;    ///< "N", "E" or "O"
    std::string RsStopBit;   ///< "1", "1.5" or "2"
    std::int16_t RsFlow = 0; ///< 1 none, 2 XON/XOFF, 3 RTS/CTS, 4 RTS/CTS with XON/XOFF
};

/// The measuring program that the instrument runs by itself, and its conversion coefficient.
struct InstrumentProgram {
    double ProgramMeasureCount = 0;
    double ProgramMeasureTimeHour = 0; ///< kept as read; nothing edits it
    double ProgramMeasureHours = 0;
    double ProgramMeasureMinutes = 0;
    std::string ProgramStartDate;    ///< as the user's system writes a short date
    std::string ProgramStartTime;    ///< hh:mm:ss
    double ProgramTotalTimeHour = 0; ///< kept as read; nothing edits it
    double ProgramTotalHours = 0;
    double ProgramTotalMinutes = 0;
    double KFactor = 0; ///< mg/m3 per count per minute
};

/// The computer's clock as the instrument settings showed it last, in the instrument's form; for whoever
/// wants to know, nothing in the program does.
struct ShownClock {
    std::string SystemDateText;
    std::string SystemTimeText;
};

/// How the computer-driven measurement runs.
struct MeasureSettings {
    double TotalSamples = 0; ///< planned readings of a run, 1 to 65500
    std::int16_t MeasureTimeHour = 0;
    std::int16_t MeasureTimeMinute = 0;
    double TotalHours = 0; ///< the planned run's length: hours, minutes and seconds of it
    double TotalMinutes = 0;
    double TotalSeconds = 0;
    std::int16_t BarGraphView = 0;
    std::int16_t MeasureSetting2 = 1; ///< edited by the measure settings, not saved
    std::int16_t SamplingSeconds =
        0; ///< seconds from one reading to the next, 1 to 900; has no key of its own
};

/// Exposure limits in mg/m3, 0.001 to 10.
struct AlarmLimits {
    double TwaAlarm = 0;
    double StelAlarm = 0;
    double CAlarm = 0; ///< ceiling
};

/// Which curves and alarm lines the chart shows.
struct GraphFlags {
    bool RelativeCFlg = false;
    bool RelativeIntegratedFlg = false;
    bool MassCFlg = false;
    bool MassIntegratedFlg = false;
    bool MassTWAFlg = false;
    bool MassSTELFlg = false;
    bool AlarmCFlg = false;
    bool AlarmTWAFlg = false;
    bool AlarmSTELFlg = false;
};

/// Values of the run in progress, or of the last one.
struct RunValues {
    std::int32_t SampleCount = 0; ///< number of the sample being taken, from 1; after the run: of those taken
    std::int16_t WaitSeconds = 0; ///< ticks of `Timer1` in the wait that is going on
    std::int16_t DataPresent = 0; ///< 1 when the measurement arrays hold a finished run
    std::int16_t DataSaved = 0;   ///< 1 when that run is in a file
};

/// The one process-wide set of settings and run values. It is made of slices, so that a rule takes the
/// slice it needs. Every field is zero, empty or false until the settings are read (but
/// `MeasureSetting2`, which starts at 1).
struct ApplicationState : ProgramPlace,
                          LanguageSettings,
                          MachineFacts,
                          LocaleDescription,
                          ComputerSettings,
                          FolderChooserMode,
                          PortSettings,
                          InstrumentProgram,
                          ShownClock,
                          MeasureSettings,
                          AlarmLimits,
                          GraphFlags,
                          RunValues {};

} // namespace quorvane
