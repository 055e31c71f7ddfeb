#pragma once

#include "app/Texts.h"
#include "resources/OwnTexts.h"
#include "serial/SerialControl.h"

#include <string>

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

/// The whole explanation: why the port cannot be used and what to do about it, with the group to join and the
/// command that does it, or with the system's own words in brackets where the sentence leaves something open.
[[nodiscard]] std::string FaultText(const PortFault& fault, const Texts& texts);

} // namespace quorvane
