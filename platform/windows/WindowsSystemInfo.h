#pragma once

#include "app/SystemInfo.h"
#include "platform/LateAnswer.h"

namespace quorvane {

/// The machine as Windows describes it: version records and the management query for processors,
/// which a thread of its own waits for.
class WindowsSystemInfo final : public SystemInfo {
public:
    [[nodiscard]] std::optional<BasicVersion> Version() const override;
    [[nodiscard]] std::optional<ExtendedVersion> VersionWithProduct() const override;
    void AskForProcessors() override;
    [[nodiscard]] std::optional<std::vector<ProcessorRecord>> TakeProcessors() override;

private:
    LateAnswer<std::vector<ProcessorRecord>> processors_;
};

} // namespace quorvane
