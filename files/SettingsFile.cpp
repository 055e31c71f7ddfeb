#include "files/SettingsFile.h"

#include "files/AppFiles.h"
#include "files/NumberText.h"
#include "instrument/DateTimeText.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <type_traits>
#include <variant>

namespace quorvane {
namespace {

using State = ApplicationState;

constexpr std::string_view kFileName = "Quorvane.ini";
constexpr std::string_view kFirstLine = "[Quorvane Software Version]";
constexpr std::string_view kTrue = " True";
constexpr std::string_view kFalse = " False";
constexpr std::string_view kRecordEnds = ",\r\n";
constexpr std::string_view kOnlySpeed = "38400";
constexpr std::int16_t kOnlyFlow = 3;
constexpr std::int16_t kUsualSamplingSeconds = 60;

/// A line that is always the same.
struct Fixed {
    std::string_view text;
};

struct Version {};

/// A key and the field behind it.
template <typename Value>
struct Setting {
    using Default = std::conditional_t<std::is_same_v<Value, std::string>, std::string_view, Value>;
    std::string_view key;
    Value State::*field;
    std::optional<Default> defaultValue; ///< nothing: see `kToday` and `kUntouched`
};
using Text = Setting<std::string>;
using Number = Setting<double>;
using Integer = Setting<std::int16_t>;
using Flag = Setting<bool>;
using SettingLine = std::variant<Fixed, Version, Text, Number, Integer, Flag>;

constexpr auto kToday = std::nullopt;     // the default of a text: today's date
constexpr auto kUntouched = std::nullopt; // the defaults leave a number as it is

/// The file from top to bottom. Writer, reader and defaults all follow it. The keys of the instrument's
/// measuring program stand one unit behind what they hold ("..._Minute=" holds hours); that is the format.
constexpr SettingLine kLines[] = {
    Fixed{kFirstLine},
    Version{},
    Fixed{""},
    Fixed{"[Computer Setting]"},
    Flag{"ProgMode=", &State::RunMode, true},
    Text{"DefaultFolder=", &State::DefaultFolder, kUnchosenFolder},
    Fixed{""},
    Fixed{"[Com Port]"},
    Text{"RsPort_CH1=", &State::RsPort, "COM1"},
    Text{"RsSpeed_CH1=", &State::RsSpeed, kOnlySpeed},
    Text{"RsDataBit_CH1=", &State::RsDataBit, "8"},
    Text{"RsParity_CH1=", &State::RsParity, "N"},
    Text{"RsStopBit_CH1=", &State::RsStopBit, "1"},
    Integer{"RsFlow_CH1=", &State::RsFlow, kOnlyFlow},
    Fixed{" "},
    Fixed{"[Quorvane Setting]"},
    Number{"DustMeasureNumber=", &State::ProgramMeasureCount, 100},
    Number{"DustMeasureTime_Hour=", &State::ProgramMeasureTimeHour, 0},
    Number{"DustMeasureTime_Minute=", &State::ProgramMeasureHours, 1},
    Number{"DustMeasureTime_Second=", &State::ProgramMeasureMinutes, 0},
    Text{"DustMeasureStartDate=", &State::ProgramStartDate, kToday},
    Text{"DustMeasureStartTime=", &State::ProgramStartTime, "00:00:00"},
    Number{"DustMeasureTotalTime_Hour=", &State::ProgramTotalTimeHour, 0},
    Number{"DustMeasureTotalTime_Minute=", &State::ProgramTotalHours, 100},
    Number{"DustMeasureTotalTime_Second=", &State::ProgramTotalMinutes, 0},
    Number{"QuorvaneKFactor=", &State::KFactor, 1.3 / 1000},
    Fixed{" "},
    Fixed{"[Measure]"},
    Number{"MeasureNumber=", &State::TotalSamples, 100},
    Integer{"MeasureTime_Hour=", &State::MeasureTimeHour, 0},
    Integer{"MeasureTime_Minute=", &State::MeasureTimeMinute, 1},
    Number{"TotalMeasureTime_Hour=", &State::TotalHours, 1},
    Number{"TotalMeasureTime_Minute=", &State::TotalMinutes, 40},
    Number{"TotalMeasureTime_Second=", &State::TotalSeconds, kUntouched},
    Integer{"BarGraphViewFlg=", &State::BarGraphView, 0},
    Fixed{" "},
    Fixed{"[Alarm]"},
    Number{"TWA_Alarm=", &State::TwaAlarm, 10},
    Number{"STEL_Alarm=", &State::StelAlarm, 10},
    Number{"C_Alarm=", &State::CAlarm, 10},
    Fixed{" "},
    Fixed{"[Graph Setting]"},
    Flag{"RelativeCFlg=", &State::RelativeCFlg, false},
    Flag{"RelativeIntegratedFlg=", &State::RelativeIntegratedFlg, false},
    Flag{"MassCFlg=", &State::MassCFlg, true},
    Flag{"MassIntegratedFlg=", &State::MassIntegratedFlg, true},
    Flag{"MassTWAFlg=", &State::MassTWAFlg, true},
    Flag{"MassSTELFlg=", &State::MassSTELFlg, true},
    Flag{"AlarmCFlg=", &State::AlarmCFlg, true},
    Flag{"AlarmTWAFlg=", &State::AlarmTWAFlg, true},
    Flag{"AlarmSTELFlg=", &State::AlarmSTELFlg, true},
};

std::string Encoded(const std::string& value)
{
    return value;
}

std::string Encoded(double value)
{
    return BlankedText(value);
}

std::string Encoded(std::int16_t value)
{
    return BlankedText(value);
}

std::string Encoded(bool value)
{
    return std::string(value ? kTrue : kFalse);
}

/// The four `Decode` store a value as it was read. @return false for a number beyond the range of its field
bool Decode(std::string_view text, std::string& value)
{
    value = text;
    return true;
}

bool Decode(std::string_view text, double& value)
{
    const std::optional<double> number = LeadingNumberInRange(text);
    value = number.value_or(value);
    return number.has_value();
}

bool Decode(std::string_view text, std::int16_t& value)
{
    const std::optional<double> number = LeadingNumberInRange(text);
    const std::optional<std::int16_t> integer = number ? RoundToInt16(*number) : std::nullopt;
    value = integer.value_or(value);
    return integer.has_value();
}

bool Decode(std::string_view text, bool& value)
{
    value = text == kTrue;
    return true;
}

struct KeyOf {
    std::string_view operator()(const SettingLine& line) const { return std::visit(*this, line); }
    std::string_view operator()(const Fixed&) const { return {}; }
    std::string_view operator()(const Version&) const { return {}; }
    template <typename Value>
    std::string_view operator()(const Setting<Value>& setting) const
    {
        return setting.key;
    }
};

struct WriteLine {
    const State& state;
    ProgramVersion version;

    std::string operator()(const Fixed& line) const { return std::string(line.text); }
    std::string operator()(const Version&) const { return FileVersionText(version); }
    template <typename Value>
    std::string operator()(const Setting<Value>& setting) const
    {
        return std::string(setting.key) + Encoded(state.*setting.field);
    }
};

struct ReadValue {
    State& state;
    std::string_view text;

    bool operator()(const Fixed&) const { return true; }
    bool operator()(const Version&) const { return true; }
    template <typename Value>
    bool operator()(const Setting<Value>& setting) const
    {
        return Decode(text, state.*setting.field);
    }
};

struct SetDefault {
    State& state;
    const std::string& today;

    void operator()(const Fixed&) const {}
    void operator()(const Version&) const {}
    void operator()(const Text& text) const { state.*text.field = text.defaultValue.value_or(today); }
    template <typename Value>
    void operator()(const Setting<Value>& setting) const
    {
        state.*setting.field = setting.defaultValue.value_or(state.*setting.field);
    }
};

/// The records of a file: lines, but a comma ends a record as well, and blanks before a record are skipped.
/// Files from other systems end their lines with LF alone.
class Records {
public:
    explicit Records(std::string_view text) : rest_(text) {}

    std::optional<std::string_view> Next()
    {
        if (rest_.empty())
            return std::nullopt;
        rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
        const std::size_t end = std::min(rest_.find_first_of(kRecordEnds), rest_.size());
        const std::string_view record = rest_.substr(0, end);
        rest_.remove_prefix(end);
        rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : std::min<std::size_t>(rest_.size(), 1));
        return record;
    }

private:
    std::string_view rest_;
};

/// @return false for a number beyond the range of its field
bool StoreRecord(State& state, std::string_view record)
{
    const std::size_t equals = record.find('=');
    if (equals == std::string_view::npos)
        return true;
    const std::string_view key = record.substr(0, equals + 1);
    const auto* const line = std::ranges::find(kLines, key, KeyOf{});
    // Keys of others are nobody's business; so are the port keys of channels 2 to 5, which old files hold.
    return line == std::ranges::end(kLines) || std::visit(ReadValue{state, record.substr(equals + 1)}, *line);
}

/// The instrument's link works at this speed and with this handshaking only, whatever the file says.
void ForceLink(PortSettings& port, std::string_view record)
{
    if (record.starts_with("RsSpeed_CH1=") && LeadingNumber(port.RsSpeed) != LeadingNumber(kOnlySpeed))
        port.RsSpeed = kOnlySpeed;
    if (record.starts_with("RsFlow_CH1="))
        port.RsFlow = kOnlyFlow;
}

std::int16_t SamplingSecondsOf(const MeasureSettings& measure)
{
    if (measure.TotalSamples < 1)
        return kUsualSamplingSeconds;
    const double planned = measure.TotalHours * 3600 + measure.TotalMinutes * 60 + measure.TotalSeconds;
    const double seconds = std::round(planned / measure.TotalSamples);
    return seconds >= 1 && seconds <= kMaxSamplingSeconds ? static_cast<std::int16_t>(seconds)
                                                          : kUsualSamplingSeconds;
}

} // namespace

SettingsFile::SettingsFile(ApplicationState& state, FileStore& store, const CodePage& codePage,
                           const LocalClock& clock, const LocaleItems& locale, ProgramVersion version)
    : state_(state), store_(store), codePage_(codePage), clock_(clock), locale_(locale), version_(version)
{
}

void SettingsFile::LoadSettings()
{
    if (ReadRecords())
        state_.SamplingSeconds = SamplingSecondsOf(state_);
    else
        ApplyDefaultSettings();
}

bool SettingsFile::ReadRecords()
{
    std::string bytes;
    if (store_.ReadWhole(Path(), bytes))
        return false;
    const std::string text = codePage_.ToUtf8(bytes);
    Records records(text);
    const auto first = records.Next(); // lost when it is no heading, even if it holds a key
    if (!first || (*first == kFirstLine && !records.Next()))
        return false;
    while (const auto record = records.Next()) {
        if (!StoreRecord(state_, *record))
            return false;
        ForceLink(state_, *record);
    }
    return true;
}

void SettingsFile::SaveSettings()
{
    std::string text;
    for (const SettingLine& line : kLines)
        text.append(std::visit(WriteLine{state_, version_}, line)).append("\r\n");
    // Nobody is left to be told when the program closes.
    static_cast<void>(store_.Replace(Path(), codePage_.FromUtf8(text)));
}

void SettingsFile::ApplyDefaultSettings()
{
    const std::string today = SystemDateText(clock_.Now(), locale_);
    for (const SettingLine& line : kLines)
        std::visit(SetDefault{state_, today}, line);
    state_.SamplingSeconds = kUsualSamplingSeconds;
}

bool SettingsFile::CanHold(std::string_view text) const
{
    return text.find_first_of(kRecordEnds) == std::string_view::npos &&
           codePage_.ToUtf8(codePage_.FromUtf8(text)) == text;
}

std::string SettingsFile::Path() const
{
    return FileInFolder(state_.AppPath, kFileName);
}

} // namespace quorvane
