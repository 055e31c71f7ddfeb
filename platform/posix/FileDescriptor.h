#pragma once

#include <string>
#include <utility>

namespace quorvane {

/// Owns an open file descriptor.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int fd) : fd_(fd) {}
    ~FileDescriptor() { (void) Close(); }
    FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(fd_, other.fd_);
        return *this;
    }

    [[nodiscard]] int Get() const { return fd_; }
    [[nodiscard]] bool IsOpen() const { return fd_ >= 0; }
    /// @return 0, or the errno that the closing gave; it is closed in any case
    int Close();

private:
    int fd_ = -1;
};

/// open() that goes on after a signal. errno tells why the result is not open.
[[nodiscard]] FileDescriptor OpenDescriptor(const std::string& path, int flags, unsigned mode = 0);

/// The system's words for an errno.
[[nodiscard]] std::string ReasonOf(int error);

} // namespace quorvane
