#include "platform/windows/SystemFault.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace quorvane {

FileFault FaultOf(unsigned long error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_NOT_READY: // no disk in the drive
        return {FileFaultKind::NotFound, ReasonOf(error)};
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return {FileFaultKind::NoPermission, ReasonOf(error)};
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return {FileFaultKind::NoSpace, ReasonOf(error)};
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
        return {FileFaultKind::InUse, ReasonOf(error)};
    default:
        return {FileFaultKind::Other, ReasonOf(error)};
    }
}

FileFault LastFault()
{
    return FaultOf(::GetLastError());
}

} // namespace quorvane
