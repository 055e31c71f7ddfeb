#pragma once

#include "stored/DriveFolders.h"

#include <filesystem>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quorvane {

/// Drives as the test has them, over the real folders of its scratch folder.
struct ScriptedDrives final : DriveFolders {
    explicit ScriptedDrives(std::string startFolder) : start(std::move(startFolder)) {}

    std::string start;
    std::vector<Drive> drives;
    std::set<std::string> unreadable; ///< no disk is in these

    std::vector<Drive> Drives() const override { return drives; }
    bool IsFolder(const std::string& path) const override { return std::filesystem::is_directory(path); }
    bool CanRead(const std::string& path) const override { return !unreadable.contains(path); }
    std::string StartFolder() const override { return start; }
};

} // namespace quorvane
