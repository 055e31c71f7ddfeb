#include "serial/PortFaultText.h"

namespace quorvane {

std::string FaultText(const PortFault& fault, const Texts& texts)
{
    if (fault.kind == PortFaultKind::NoPermission && !fault.group.empty())
        return FilledIn(FilledIn(texts[kPortGroupText], fault.group), fault.group);
    std::string text = texts[ReasonText(fault.kind)];
    const bool leavesOpen = fault.kind == PortFaultKind::Unsupported || fault.kind == PortFaultKind::Other;
    if (leavesOpen && !fault.systemReason.empty())
        text += " (" + fault.systemReason + ")";
    return text;
}

} // namespace quorvane
