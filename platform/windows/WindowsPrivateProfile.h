#pragma once

#include "files/FileProfile.h"
#include "platform/windows/WindowsCodePage.h"
#include "platform/windows/WindowsFileStore.h"

namespace quorvane {

/// Private-profile files by the system's own calls, and, below paths that are too long for those, by this
/// program's.
class WindowsPrivateProfile final : public PrivateProfile {
public:
    [[nodiscard]] std::string ReadIniValue(std::string_view section, std::string_view key,
                                           const std::string& path) const override;
    [[nodiscard]] std::optional<FileFault> WriteIniValue(std::string_view section, std::string_view key,
                                                         std::string_view value,
                                                         const std::string& path) override;

private:
    WindowsFileStore files_;
    WindowsCodePage codePage_;
    FileProfile longPaths_{files_, codePage_};
};

} // namespace quorvane
