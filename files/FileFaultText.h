#pragma once

#include "app/Texts.h"
#include "files/FileStore.h"
#include "resources/OwnTexts.h"

#include <string>

namespace quorvane {

/// The number of the sentence that explains the fault to the operator.
[[nodiscard]] constexpr int ReasonText(FileFaultKind kind)
{
    switch (kind) {
    case FileFaultKind::NotFound:
        return kFileNotFoundText;
    case FileFaultKind::NoPermission:
        return kFileNoPermissionText;
    case FileFaultKind::NoSpace:
        return kFileNoSpaceText;
    case FileFaultKind::InUse:
        return kFileInUseText;
    case FileFaultKind::NotAFile:
        return kFileNotAFileText;
    case FileFaultKind::Other:
        break;
    }
    return kFileOtherText;
}

/// The same in words: the system's own where it has some.
[[nodiscard]] inline std::string FaultReason(const FileFault& fault, const Texts& texts)
{
    return fault.systemReason.empty() ? texts[ReasonText(fault.kind)] : fault.systemReason;
}

} // namespace quorvane
