#include "platform/posix/FileFault.h"

#include <cerrno>
#include <unistd.h>

namespace quorvane {

FileFault FaultOf(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return {FileFaultKind::NotFound, ReasonOf(error)};
    case EACCES:
    case EPERM:
    case EROFS:
        return {FileFaultKind::NoPermission, ReasonOf(error)};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {FileFaultKind::NoSpace, ReasonOf(error)};
    case EBUSY:
    case ETXTBSY:
        return {FileFaultKind::InUse, ReasonOf(error)};
    case EISDIR:
    case ENXIO: // a pipe that nobody reads
        return {FileFaultKind::NotAFile, ReasonOf(error)};
    default:
        return {FileFaultKind::Other, ReasonOf(error)};
    }
}

int Flush(const FileDescriptor& file)
{
    int result = 0;
    do
        result = ::fsync(file.Get());
    while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL ? 0 : errno; // EINVAL: a file system that has nothing to flush to
}

} // namespace quorvane
