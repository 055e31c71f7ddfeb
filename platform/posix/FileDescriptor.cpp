#include "platform/posix/FileDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace quorvane {

int FileDescriptor::Close()
{
    if (fd_ < 0)
        return 0;
    // Not repeated after EINTR: the descriptor is free by then and may belong to someone else.
    const int result = ::close(std::exchange(fd_, -1));
    return result == 0 || errno == EINTR ? 0 : errno;
}

FileDescriptor OpenDescriptor(const std::string& path, int flags, unsigned mode)
{
    for (;;) {
        const int fd = ::open(path.c_str(), flags | O_CLOEXEC, mode);
        if (fd >= 0 || errno != EINTR)
            return FileDescriptor(fd);
    }
}

std::string ReasonOf(int error)
{
    return std::system_category().message(error);
}

} // namespace quorvane
