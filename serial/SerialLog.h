#pragma once

#include "app/ApplicationState.h"
#include "app/LocalClock.h"
#include "app/LocaleItems.h"
#include "files/CodePage.h"
#include "files/FileStore.h"

#include <string>
#include <string_view>

namespace quorvane {

/// "RSErr.log" in the program's folder: one record for each failed exchange with the instrument, for a
/// service person. It is only ever appended to.
class SerialLog {
public:
    SerialLog(const ProgramPlace& place, FileStore& files, const CodePage& codePage, const LocalClock& clock,
              const LocaleItems& locale);

    /// Appends date and time, command, received text and count. A failure to write is kept from the caller,
    /// who has a failure of his own to report.
    /// @param commandName   "N Command", "D Command Data Read" ...
    /// @param receivedText  bytes as they came, control characters included
    /// @param count         reads, or the part of the wait, that was used up
    void LogSerialError(std::string_view commandName, std::string_view receivedText, int count);

private:
    const ProgramPlace& place_;
    FileStore& files_;
    const CodePage& codePage_;
    const LocalClock& clock_;
    const LocaleItems& locale_;
};

} // namespace quorvane
