#pragma once

#include "stored/DriveFolders.h"

namespace quorvane {

/// The drives and folders as the toolkit knows them.
class QtDriveFolders final : public DriveFolders {
public:
    [[nodiscard]] std::vector<Drive> Drives() const override;
    [[nodiscard]] bool IsFolder(const std::string& path) const override;
    [[nodiscard]] bool CanRead(const std::string& drivePath) const override;
    [[nodiscard]] std::string StartFolder() const override;
};

} // namespace quorvane
