#pragma once

#include "resources/OwnTexts.h"
#include "serial/SerialControl.h"

namespace quorvane {

/// The number of the sentence that explains the fault to the operator.
[[nodiscard]] constexpr int ReasonText(PortFaultKind kind)
{
    switch (kind) {
    case PortFaultKind::Absent:
        return kPortAbsentText;
    case PortFaultKind::Busy:
        return kPortBusyText;
    case PortFaultKind::NoPermission:
        return kPortNoPermissionText;
    case PortFaultKind::NotALine:
        return kPortNotALineText;
    case PortFaultKind::Unsupported:
        return kPortUnsupportedText;
    case PortFaultKind::Other:
        break;
    }
    return kPortOtherText;
}

} // namespace quorvane
