#include "files/FileProfile.h"
#include "files/IniText.h"
#include "files/ProgramSettingFile.h"
#include "tests/fuzz/Hold.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/FakeCodePage.h"
#include "tests/support/MemoryFileStore.h"

#include <cmath>

namespace quorvane {
namespace {

constexpr std::string_view kSection = "Program Setting";
constexpr std::string_view kKey = "Measure StartDate";
constexpr std::string_view kOtherKey = "Measure StartTime";
constexpr const char* kPath = "program.ini";

/// A value can be replaced in any bytes, and nothing else changes.
void HoldOneValue(const std::string& bytes, const std::string& value)
{
    const std::string written = WithIniValue(bytes, kSection, kKey, value);
    Hold(IniValue(written, kSection, kKey) == IniValue("[s]\nk=" + value, "s", "k"),
         "what was written is read");
    Hold(IniValue(written, kSection, kOtherKey) == IniValue(bytes, kSection, kOtherKey), "other keys stay");
    Hold(IniValue(written, "Elsewhere", kKey) == IniValue(bytes, "Elsewhere", kKey), "other sections stay");
    Hold(WithIniValue(written, kSection, kKey, value) == written, "writing it again changes nothing");
    Hold(written.size() <= bytes.size() + value.size() + kSection.size() + kKey.size() + 10,
         "and adds nothing");
}

/// A program that is read from any file, written over it and read again is the same.
void HoldProgram(const std::string& bytes)
{
    MemoryFileStore store;
    const FakeCodePage codePage;
    FileProfile profile(store, codePage);
    store.files[kPath] = bytes;
    InstrumentProgram program;
    ProgramSettingFile file(program, profile, {2, 0, 2});
    file.OpenProgramSetting(kPath);
    for (const double value :
         {program.ProgramMeasureCount, program.ProgramMeasureHours, program.ProgramTotalHours})
        Hold(std::isfinite(value), "the values are numbers");
    Hold(file.OpenedVersion().size() <= 4 * PrivateProfile::kMostCharacters,
         "no text is longer than its buffer");
    if (file.SaveProgramSetting(kPath)) {
        Hold(store.files[kPath] == bytes, "what is no plain text is not touched");
        return;
    }
    const std::string written = store.files[kPath];
    const std::string date = program.ProgramStartDate;
    file.OpenProgramSetting(kPath);
    Hold(file.OpenedVersion() == "Quorvane_Ver.2020", "the version is this program's");
    Hold(!file.SaveProgramSetting(kPath), "what was plain text is still");
    // A pair of quotation marks within another pair comes off at each reading, and so do blanks that stand
    // within them or at the place where a long value is cut.
    if (date.find_first_of("\"'") == std::string::npos && date.size() < PrivateProfile::kMostCharacters &&
        written.find("E+308") == std::string::npos)
        Hold(store.files[kPath] == written, "what was read and written reads the same");
}

} // namespace

/// The first line is a value, what stands behind it a file.
void TryProfile(std::string_view input)
{
    const std::string value = CutTo(input, '\n');
    const std::string bytes(input);
    HoldOneValue(bytes, value);
    HoldProgram(bytes);
}

} // namespace quorvane
