#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "app/ProgramVersion.h"
#include "files/CodePage.h"
#include "files/FileStore.h"

#include <string>
#include <string_view>

namespace quorvane {

/// `DefaultFolder` as long as nobody has chosen one.
inline constexpr std::string_view kUnchosenFolder = "C:\\";

/// The settings file "Quorvane.ini" in the program's folder (`AppPath`), in the user's code page.
class SettingsFile {
public:
    SettingsFile(ApplicationState& state, FileStore& store, const CodePage& codePage, const LocalClock& clock,
                 const LocaleItems& locale, ProgramVersion version);

    /// Reads the file into the state. A field whose key is missing keeps its value. When the file cannot be
    /// read, ends before its second record, or holds a number beyond the range of its field, the defaults
    /// replace everything. Tells nobody.
    ///
    /// `SamplingSeconds` has no key: it is the planned length of the run divided by the planned number of
    /// readings, rounded, a half upwards; 60 when that is not 1 to 900.
    void LoadSettings();

    /// Writes the whole file anew. A failure leaves the old file and tells nobody: the program is closing.
    void SaveSettings();

    /// Sets everything that has a key to its default, except `TotalSeconds`, which stays; `SamplingSeconds`
    /// becomes 60.
    void ApplyDefaultSettings();

    /// Whether a text comes back whole when it was written: a comma or a line's end cuts it off, and a
    /// character that the code page lacks is lost.
    [[nodiscard]] bool CanHold(std::string_view text) const;

private:
    [[nodiscard]] std::string Path() const;
    [[nodiscard]] bool ReadRecords();

    ApplicationState& state_;
    FileStore& store_;
    const CodePage& codePage_;
    const LocalClock& clock_;
    const LocaleItems& locale_;
    ProgramVersion version_;
};

} // namespace quorvane
