#pragma once

#include "app/SystemInfo.h"

namespace quorvane {

/// The machine as Windows describes it: version records and the management query for processors.
class WindowsSystemInfo final : public SystemInfo {
public:
    [[nodiscard]] std::optional<BasicVersion> Version() const override;
    [[nodiscard]] std::optional<ExtendedVersion> VersionWithProduct() const override;
    [[nodiscard]] std::vector<ProcessorRecord> Processors() const override;
};

} // namespace quorvane
