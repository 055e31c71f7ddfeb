#pragma once

#include "app/SystemInfo.h"

namespace quorvane {

/// The machine as the Linux kernel describes it. There is no version record: Linux is none of the systems
/// whose versions are classified.
class PosixSystemInfo final : public SystemInfo {
public:
    [[nodiscard]] std::optional<BasicVersion> Version() const override { return std::nullopt; }
    [[nodiscard]] std::optional<ExtendedVersion> VersionWithProduct() const override { return std::nullopt; }
    void AskForProcessors() override;
    /// There as soon as it is asked for: the kernel answers at once.
    [[nodiscard]] std::optional<std::vector<ProcessorRecord>> TakeProcessors() override;

private:
    std::optional<std::vector<ProcessorRecord>> processors_;
};

} // namespace quorvane
