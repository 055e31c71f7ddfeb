#include "platform/posix/PosixSystemInfo.h"

#include "platform/posix/PosixFileStore.h"
#include "platform/posix/ProcessorList.h"

#include <utility>

namespace quorvane {

void PosixSystemInfo::AskForProcessors()
{
    processors_ = ListProcessors([store = PosixFileStore()](const std::string& path) {
        std::string text;
        static_cast<void>(store.ReadWhole(path, text)); // nothing, when it cannot be read
        return text;
    });
}

std::optional<std::vector<ProcessorRecord>> PosixSystemInfo::TakeProcessors()
{
    return std::exchange(processors_, std::nullopt);
}

} // namespace quorvane
