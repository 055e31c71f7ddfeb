#pragma once

#include <string>
#include <vector>

namespace quorvane {

/// A place where folders begin.
struct Drive {
    std::string path; ///< "C:\", "/media/user/stick"; UTF-8, as the system writes it
    std::string name; ///< what tells it from the others: "C:", a volume's name; shown behind the path
};

/// The computer's drives and folders. Paths are UTF-8, as the system writes them.
class DriveFolders {
public:
    virtual ~DriveFolders() = default;
    /// In the order in which they are listed. On Windows the drive letters; elsewhere the root, the home
    /// folder and the mounted volumes.
    [[nodiscard]] virtual std::vector<Drive> Drives() const = 0;
    /// Whether `path` is a folder.
    [[nodiscard]] virtual bool IsFolder(const std::string& path) const = 0;
    /// Whether the drive can be read: no disk, a volume that has gone, no permission are why not.
    [[nodiscard]] virtual bool CanRead(const std::string& drivePath) const = 0;
    /// Where the lists start when nothing else is known: the user's own folder.
    [[nodiscard]] virtual std::string StartFolder() const = 0;
};

} // namespace quorvane
