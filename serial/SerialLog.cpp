#include "serial/SerialLog.h"

#include "files/AppFiles.h"
#include "files/NumberText.h"
#include "instrument/DateTimeText.h"
#include "serial/CommandSet.h"

namespace quorvane {

SerialLog::SerialLog(const ProgramPlace& place, FileStore& files, const CodePage& codePage,
                     const LocalClock& clock, const LocaleItems& locale)
    : place_(place), files_(files), codePage_(codePage), clock_(clock), locale_(locale)
{
}

void SerialLog::LogSerialError(std::string_view commandName, std::string_view receivedText, int count)
{
    const std::string path = FileInFolder(place_.AppPath, "RSErr.log");
    std::string bytes;
    if (!files_.Exists(path)) {
        bytes += "RS232C Error Log File";
        bytes += kLineEnd;
    }
    bytes += codePage_.FromUtf8(SystemDateTimeText(clock_.Now(), locale_));
    bytes += ',';
    bytes += commandName;
    bytes += ',';
    bytes += receivedText;
    bytes += ',';
    bytes += BlankedText(count);
    bytes += kLineEnd;
    static_cast<void>(files_.Append(path, bytes)); // the exchange's own failure is what the operator hears of
}

} // namespace quorvane
