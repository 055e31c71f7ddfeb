#pragma once

#include "files/FileStore.h"
#include "platform/posix/FileDescriptor.h"

namespace quorvane {

/// An errno as the fault of a file operation.
[[nodiscard]] FileFault FaultOf(int error);

/// Sends a file or folder to the disk. @return 0, or the errno
int Flush(const FileDescriptor& file);

} // namespace quorvane
