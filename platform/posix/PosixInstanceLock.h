#pragma once

#include "app/InstanceLock.h"
#include "platform/posix/FileDescriptor.h"

#include <string>
#include <utility>
#include <vector>

namespace quorvane {

/// A folder that may hold the lock's file.
struct LockFolder {
    std::string path;
    bool mayBeMade = false; ///< when it is missing
};

/// The folders that come into question, best first: the user's for running programs, that for the user's
/// data, one of the user's own among the temporary files.
[[nodiscard]] std::vector<LockFolder> LockFolders();

/// A lock of the system on a file of the user's: it goes with the process, however that ends. The file itself
/// stays and says nothing. It is in the first folder that will do; a folder or file that is not the user's
/// own, or that others may write, will not.
class PosixInstanceLock final : public InstanceLock {
public:
    explicit PosixInstanceLock(std::vector<LockFolder> folders = LockFolders()) : folders_(std::move(folders))
    {
    }
    [[nodiscard]] bool PreviousInstanceRunning() override;

private:
    std::vector<LockFolder> folders_;
    FileDescriptor file_; ///< holds the lock; no program that is started from here inherits it
};

} // namespace quorvane
