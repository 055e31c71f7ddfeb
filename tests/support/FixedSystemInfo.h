#pragma once

#include "app/SystemInfo.h"

#include <functional>
#include <utility>

namespace quorvane {

/// A machine that a test describes. It answers when it has processors to tell of.
class FixedSystemInfo : public SystemInfo {
public:
    std::optional<BasicVersion> version;
    std::optional<ExtendedVersion> versionWithProduct;
    std::optional<std::vector<ProcessorRecord>> processors = std::vector<ProcessorRecord>();
    std::function<void()> whenAsked;

    std::optional<BasicVersion> Version() const override { return version; }
    std::optional<ExtendedVersion> VersionWithProduct() const override { return versionWithProduct; }
    void AskForProcessors() override
    {
        if (whenAsked)
            whenAsked();
    }
    std::optional<std::vector<ProcessorRecord>> TakeProcessors() override
    {
        return std::exchange(processors, std::nullopt);
    }
};

} // namespace quorvane
