#include "platform/posix/PosixSystemInfo.h"

#include "platform/posix/PosixFileStore.h"
#include "platform/posix/ProcessorList.h"

namespace quorvane {

std::vector<ProcessorRecord> PosixSystemInfo::Processors() const
{
    return ListProcessors([store = PosixFileStore()](const std::string& path) {
        std::string text;
        static_cast<void>(store.ReadWhole(path, text)); // nothing, when it cannot be read
        return text;
    });
}

} // namespace quorvane
