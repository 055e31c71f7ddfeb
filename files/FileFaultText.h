#pragma once

#include "files/FileStore.h"
#include "resources/OwnTexts.h"

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

} // namespace quorvane
