#pragma once

#include "files/CodePage.h"
#include "files/FileStore.h"
#include "files/PrivateProfile.h"

namespace quorvane {

/// Private-profile files where the system has no calls of its own for them. Every write reads the file anew
/// and replaces it as a whole, so that a failure leaves the old one. A file that begins with the mark of
/// UTF-8 is in UTF-8.
class FileProfile final : public PrivateProfile {
public:
    FileProfile(FileStore& files, const CodePage& codePage) : files_(files), codePage_(codePage) {}

    [[nodiscard]] std::string ReadIniValue(std::string_view section, std::string_view key,
                                           const std::string& path) const override;
    /// A file that is there and cannot be read is not touched, nor is one that is no plain text.
    [[nodiscard]] std::optional<FileFault> WriteIniValue(std::string_view section, std::string_view key,
                                                         std::string_view value,
                                                         const std::string& path) override;

private:
    FileStore& files_;
    const CodePage& codePage_;
};

} // namespace quorvane
