#pragma once

#include "files/PrivateProfile.h"

namespace quorvane {

/// Private-profile files by the system's own calls.
class WindowsPrivateProfile final : public PrivateProfile {
public:
    [[nodiscard]] std::string ReadIniValue(std::string_view section, std::string_view key,
                                           const std::string& path) const override;
    [[nodiscard]] std::optional<FileFault> WriteIniValue(std::string_view section, std::string_view key,
                                                         std::string_view value,
                                                         const std::string& path) override;
};

} // namespace quorvane
